// Real key strokes for windows under test: every key goes to the widget that has the focus, and the event
// loop gets its turn behind it, as at a keyboard. Letters outside Latin-1 are fine.
#pragma once

#include <QApplication>
#include <QKeyEvent>
#include <QTest>
#include <QWidget>

namespace vandrel::test {

inline QWidget* focused() {
    return QApplication::focusWidget();
}

// objectName of the widget with the focus; "(none)" without one.
inline QString focusedName() {
    return focused() != nullptr ? focused()->objectName() : QStringLiteral("(none)");
}

inline void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    if (focused() != nullptr) QTest::keyClick(focused(), key, modifiers);
    QCoreApplication::processEvents();
}

inline void type(const QString& text) {
    for (const QChar letter : text) {
        if (focused() == nullptr) return;
        const int key = letter.unicode() < 0x80 ? static_cast<int>(letter.toUpper().unicode())
                                                : static_cast<int>(Qt::Key_unknown);
        QKeyEvent down(QEvent::KeyPress, key, Qt::NoModifier, QString(letter));
        QCoreApplication::sendEvent(focused(), &down);
        QCoreApplication::processEvents();
    }
}

// Text, then Enter.
inline void enter(const QString& text = {}) {
    type(text);
    press(Qt::Key_Return);
}

inline bool showActive(QWidget& window) {
    window.activateWindow();
    return QTest::qWaitForWindowActive(&window);
}

} // namespace vandrel::test
