// Programs run beside the measuring one, each in a process of its own: what they print, how long they took.
#pragma once

#include <QString>
#include <QStringList>

namespace vandrel::bench {

struct ChildResult {
    QString output;     // of its standard output, to the end of the process
    double toFirstByte; // seconds from before its start to the first byte on its standard output
};

// Runs a program in a working folder with QT_QPA_PLATFORM=offscreen and waits for its end. Ends the measuring
// program with a message when it fails.
ChildResult runChild(const QString& program, const QStringList& arguments, const QString& workingFolder);

// The path of this program and of those beside it.
QString ownProgram();
QString neighbour(const QString& name);

} // namespace vandrel::bench
