#include "foundation/forms/window_helpers.h"

#include <QApplication>
#include <QFont>
#include <QLocale>
#include <QScreen>
#include <QStyleFactory>
#include <QWidget>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace vandrel {

namespace {
constexpr double seeThroughOpacity = 150.0 / 255.0;
constexpr QSize usualFrame(8, 34); // both borders; title bar and lower border
} // namespace

bool applySeeThrough(QWidget& window, bool seeThrough) {
    // The other platforms take the call, do nothing and complain on the console.
    static const QStringList layered = {u"xcb"_s, u"windows"_s, u"cocoa"_s};
    if (seeThrough && !layered.contains(QGuiApplication::platformName())) return false;
    if (seeThrough || window.windowOpacity() < 1.0)
        window.setWindowOpacity(seeThrough ? seeThroughOpacity : 1.0);
    return true;
}

void centreOnScreen(QWidget& window) {
    if (window.isMaximized() || window.isFullScreen()) return; // moving it would end that
    const QScreen* screen = window.screen() != nullptr ? window.screen() : QApplication::primaryScreen();
    if (screen == nullptr) return;
    const QRect area = screen->availableGeometry();
    // The window system tells the frame late; until then a usual one is allowed for.
    QSize frame = window.frameGeometry().size() - window.size();
    if (frame.height() <= 0) frame = usualFrame;
    const QSize room = area.size() - frame;
    if (window.width() > room.width() || window.height() > room.height())
        window.resize(window.size().boundedTo(room));
    const QSize outer = window.size() + frame;
    // A window that cannot be so small keeps its title and its beginning in sight.
    window.move(area.left() + std::max(0, (area.width() - outer.width()) / 2),
                area.top() + std::max(0, (area.height() - outer.height()) / 2));
}

void prepareApplication(QApplication& application) {
    QLocale::setDefault(QLocale(QLocale::Hungarian, QLocale::Hungary));
    application.setStyle(QStyleFactory::create(u"Fusion"_s));
    // The machine's default may be a typewriter face where few fonts are installed.
    QFont font = application.font();
    font.setFamilies({u"DejaVu Sans"_s, u"Liberation Sans"_s});
    application.setFont(font);
}

} // namespace vandrel
