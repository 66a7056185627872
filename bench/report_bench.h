// The monthly report beside its two floors: time, peak memory, the same bytes, and how long the window is
// kept waiting.
#pragma once

#include "measure.h"

#include <QString>

namespace vandrel::bench {

void measureReport(Table& table, const QString& folder, const QString& size, const QString& workFolder,
                   int rounds);

// The measured process: makes the report of a month from a window's button to the closed files and prints its
// figures.
int reportChild(int argc, char** argv, const QString& folder, const QString& month);

} // namespace vandrel::bench
