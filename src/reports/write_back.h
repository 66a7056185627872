// Clears the report marks of a period so that its sheets can be reported again. Knows no window.
#pragma once

#include "foundation/workstation.h"

#include <QString>

#include <functional>

namespace vandrel {

enum class WriteBack { original, corrected, both };

struct WriteBackOutcome {
    QString field;     // "from" or "to" when that is no whole period: its box was shown, nothing was done
    qint64 sheets = 0; // whose marks were cleared
};

// Runs it all, boxes included. The sheets change in one transaction: a fault leaves every mark as it was and
// is told in a box with its text. moved gets (position, total) about every 20 ms and at the last sheet.
WriteBackOutcome writeBackMarks(Workstation& station, const QString& from, const QString& to,
                                WriteBack option, const std::function<void(qint64, qint64)>& moved);

} // namespace vandrel
