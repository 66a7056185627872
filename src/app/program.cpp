#include "app/program.h"

#include "foundation/forms/window_helpers.h"

#include <QApplication>

namespace vandrel {

int runProgram(int argc, char** argv) {
    QApplication application(argc, argv);
    prepareApplication(application);
    return 0;
}

} // namespace vandrel
