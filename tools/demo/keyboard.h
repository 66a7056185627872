// The demonstration's hands: every key goes to whatever has the focus, as from a real keyboard. Knows no
// form.
#pragma once

#include <QString>
#include <Qt>

class QWidget;

namespace vandrel::demo {

// What a key would reach now: an open menu, else the focused field, else the window in front.
QWidget* keyTarget();
// objectName of what has the focus; empty when nothing has.
QString focusName();

void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
// One key a character, Hungarian letters included.
void type(const QString& text);
// Lets everything happen that waits in the event queue.
void settle();

} // namespace vandrel::demo
