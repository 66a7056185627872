// Makes the month's report with the real screens, writes the marks back and makes it again.
#pragma once

#include <QString>

namespace vandrel {
class Program;
}

namespace vandrel::demo {

class Stage;

// target: the folder that receives the report, an existing one beside the program's folder. The two runs must
// give the same bytes.
void playReports(Stage& stage, Program& program, const QString& target);

} // namespace vandrel::demo
