#include "demo/keyboard.h"

#include <QApplication>
#include <QKeyEvent>
#include <QTest>
#include <QWidget>

namespace vandrel::demo {

QWidget* keyTarget() {
    if (QWidget* menu = QApplication::activePopupWidget()) return menu;
    if (QWidget* focused = QApplication::focusWidget()) return focused;
    if (QWidget* modal = QApplication::activeModalWidget()) return modal;
    return QApplication::activeWindow();
}

QString focusName() {
    const QWidget* focused = QApplication::focusWidget();
    return focused != nullptr ? focused->objectName() : QString();
}

namespace {

// Offscreen no window manager gives the keyboard back when a box has closed. One enabled window stands in
// front: a form disables its opener.
void activateFrontWindow() {
    if (QApplication::activeWindow() != nullptr || QApplication::activePopupWidget() != nullptr) return;
    const QWidgetList windows = QApplication::topLevelWidgets();
    QWidget* front = QApplication::activeModalWidget();
    for (QWidget* window : windows)
        if (front == nullptr && window->isWindow() && window->isVisible() && window->isEnabled())
            front = window;
    if (front == nullptr) return;
    front->activateWindow();
    QCoreApplication::processEvents();
}

} // namespace

void settle() {
    // Queued checks may queue more: a few turns, and what was told to delete itself goes too.
    for (int turn = 0; turn < 3; ++turn) {
        QCoreApplication::processEvents();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        activateFrontWindow();
    }
}

void press(Qt::Key key, Qt::KeyboardModifiers modifiers) {
    if (QWidget* target = keyTarget()) QTest::keyClick(target, key, modifiers);
    settle();
}

void type(const QString& text) {
    for (const QChar letter : text) {
        // Qt's test helper stops at letters outside Latin-1; a key without a code carries any text.
        for (const QEvent::Type kind : {QEvent::KeyPress, QEvent::KeyRelease}) {
            QWidget* target = keyTarget();
            if (target == nullptr) return;
            QKeyEvent event(kind, Qt::Key_unknown, Qt::NoModifier, QString(letter));
            QCoreApplication::sendEvent(target, &event);
        }
        QCoreApplication::processEvents();
    }
    settle();
}

} // namespace vandrel::demo
