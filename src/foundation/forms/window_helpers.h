// What every window needs from the window system and the style: see-through, its place on the screen, fonts.
#pragma once

class QApplication;
class QWidget;

namespace vandrel {

// Constant opacity of the forms opened from the menu (150 of 255), or solid. False when see-through was asked
// for and this machine's windows cannot do it; the window is solid then.
bool applySeeThrough(QWidget& window, bool seeThrough);
// To the middle of the screen's available area, with its frame inside it: a window that is too large for it
// becomes smaller, as far as its layout lets it. A maximised window stays as it is.
void centreOnScreen(QWidget& window);
// Style, fonts and Hungarian names of days and months in calendars; once at start, for the program and its
// tests.
void prepareApplication(QApplication& application);

} // namespace vandrel
