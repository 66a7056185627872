// Small things that every window does: see-through, standing in the middle of the screen, fonts and style.
#pragma once

class QApplication;
class QWidget;

namespace vandrel {

// Constant opacity of the forms opened from the menu (150 of 255), or solid. False when see-through was asked
// for and this machine's windows cannot do it; the window is solid then.
bool applySeeThrough(QWidget& window, bool seeThrough);
void centreOnScreen(QWidget& window);
// Style, Hungarian locale of calendars, readable disabled fields; once at start, for the program and its
// tests.
void prepareApplication(QApplication& application);

} // namespace vandrel
