// Types as a clerk does, Hungarian letters included (Qt's own helper stops at letters outside Latin-1).
#pragma once

#include <QApplication>
#include <QKeyEvent>
#include <QTest>
#include <QWidget>

namespace vandrel::test {

// Sends each character to whatever has the focus; what waits in the event queue runs between two keys.
inline void typeText(const QString& text) {
    for (const QChar c : text) {
        QWidget* target = QApplication::focusWidget();
        if (target == nullptr) return;
        QKeyEvent press(QEvent::KeyPress, Qt::Key_unknown, Qt::NoModifier, QString(c));
        QApplication::sendEvent(target, &press);
        QKeyEvent release(QEvent::KeyRelease, Qt::Key_unknown, Qt::NoModifier, QString(c));
        QApplication::sendEvent(target, &release);
        QCoreApplication::processEvents();
    }
}

// objectName of what has the focus; empty when nothing has.
inline QString focusName() {
    return QApplication::focusWidget() != nullptr ? QApplication::focusWidget()->objectName() : QString();
}

// One key to whatever has the focus; gives back who has it then.
inline QString pressKey(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    QWidget* target = QApplication::focusWidget();
    if (target == nullptr) target = QApplication::activeWindow();
    if (target == nullptr) return {};
    QTest::keyClick(target, key, modifiers);
    QCoreApplication::processEvents();
    return focusName();
}

// Text, then Enter; gives back who has the focus then.
inline QString enter(const QString& text = {}) {
    typeText(text);
    return pressKey(Qt::Key_Return);
}

} // namespace vandrel::test
