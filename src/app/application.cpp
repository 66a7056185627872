#include "app/application.h"

#include "platform/fault.h"

#include <QIcon>
#include <QPainter>
#include <QPixmap>

using namespace Qt::StringLiterals;

namespace vandrel {

bool deliverShowingFaults(Dialogue* dialogue, const std::function<bool()>& deliver) {
    if (dialogue == nullptr) return deliver();
    try {
        return deliver();
    } catch (const Fault& fault) {
        dialogue->tell(fault.text(), u"Hiba"_s);
        return false;
    }
}

Application::Application(int& argc, char** argv) : QApplication(argc, argv) {
    // The main window ends the program; a box that closes before it stands must not.
    setQuitOnLastWindowClosed(false);
    setWindowIcon(programIcon());
}

bool Application::notify(QObject* receiver, QEvent* event) {
    return deliverShowingFaults(m_dialogue,
                                [this, receiver, event] { return QApplication::notify(receiver, event); });
}

QIcon programIcon() {
    QPixmap pixmap(64, 64);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(28, 92, 110));
    painter.drawRoundedRect(QRectF(2, 2, 60, 60), 12, 12);
    painter.setBrush(Qt::white);
    painter.drawRoundedRect(QRectF(26, 12, 12, 40), 2, 2);
    painter.drawRoundedRect(QRectF(12, 26, 40, 12), 2, 2);
    return QIcon(pixmap);
}

} // namespace vandrel
