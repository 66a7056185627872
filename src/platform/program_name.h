// The program's name and version, each in one place. The version is the project's, from CMake.
#pragma once

#include <QString>

namespace vandrel {

// Also the title of every box that has none of its own.
inline const QString programTitle = QStringLiteral(u"Vandrel Járóbeteg program");

// "v2.25".
QString programVersion();

} // namespace vandrel
