// Opens what the menu holds, by its access letters and arrows, and plays the small screens.
#pragma once

#include <QString>
#include <Qt>

namespace vandrel {
class Program;
}

namespace vandrel::demo {

class Stage;

// letter is the access letter of the menu's title; the path goes by the menu names of the entries.
void openFromMenu(Stage& stage, Program& program, Qt::Key letter, const QStringList& path);
// The first start: the program asks for the institution, and it is typed in.
void playFirstStart(Stage& stage, Program& program);
// Workstation label, environment, about box, and the question before the end.
void playSmallScreens(Stage& stage, Program& program);
void playExit(Stage& stage, Program& program);

} // namespace vandrel::demo
