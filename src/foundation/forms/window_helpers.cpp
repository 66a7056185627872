#include "foundation/forms/window_helpers.h"

#include <QApplication>
#include <QFont>
#include <QLocale>
#include <QScreen>
#include <QStyleFactory>
#include <QWidget>

using namespace Qt::StringLiterals;

namespace vandrel {

namespace {
constexpr double seeThroughOpacity = 150.0 / 255.0;
}

bool applySeeThrough(QWidget& window, bool seeThrough) {
    // The other platforms take the call, do nothing and complain on the console.
    static const QStringList layered = {u"xcb"_s, u"windows"_s, u"cocoa"_s};
    if (seeThrough && !layered.contains(QGuiApplication::platformName())) return false;
    if (seeThrough || window.windowOpacity() < 1.0)
        window.setWindowOpacity(seeThrough ? seeThroughOpacity : 1.0);
    return true;
}

void centreOnScreen(QWidget& window) {
    const QScreen* screen = window.screen() != nullptr ? window.screen() : QApplication::primaryScreen();
    if (screen == nullptr) return;
    const QRect area = screen->availableGeometry();
    window.move(area.center() - window.rect().center());
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
