// The floor under the start: an empty window of the main window's size, which says when it has been painted
// and ends.
#include "first_paint.h"

#include <QApplication>
#include <QWidget>

int main(int argc, char** argv) {
    const QApplication application(argc, argv);
    const vandrel::bench::FirstPaint painted;
    QWidget window;
    window.resize(1024, 700);
    window.show();
    return QApplication::exec();
}
