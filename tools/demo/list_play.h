// Makes the statistics' lists of the typed sheets with the real screens, looks at them in the preview, and
// saves them.
#pragma once

#include <QString>

namespace vandrel {
class Program;
}

namespace vandrel::demo {

class Stage;

// folder: an existing one that receives the saved files.
void playLists(Stage& stage, Program& program, const QString& folder);

} // namespace vandrel::demo
