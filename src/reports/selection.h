// The selection of a report run: the sheets that are due in a period, laid out as rows of a scratch table,
// each sheet marked as reported on the way. Knows no window and writes no file.
#pragma once

#include "platform/event_turn.h"
#include "reports/report_run.h"

#include <vector>

namespace vandrel {

// Of the original report (Leval_er, mark FLOPPY, sheets that are no corrections) or of the corrected one
// (Leval_jav, mark FLOPPY2, corrections only).
enum class Selection { original, corrected };

// A sheet has room for this many lines; one more is fault subscript.
inline constexpr std::size_t linesPerSheet = 100;

// Sheets of all periods, for the screen's counter.
qint64 countSheets(Workstation& station);

// Deletes every row of both scratch tables.
void emptyScratchTables(Workstation& station);

// The rowids of the sheets of a period whose first seven characters of F_DATUM lie between the two texts,
// ends included, in stored order. An own question instead of a cursor: the marks change the table below.
std::vector<qint64> dueSheets(Workstation& station, Selection selection, const QString& from,
                              const QString& to, EventTurn& turn);

// Writes the rows of each sheet and marks it: a sheet without lines gives no row and is marked all the same.
// When a fault breaks the walk it is raised after what was done so far is committed: the marks stay, and
// the sheet at fault has none. Gives the number of rows written.
qint64 flattenSheets(Workstation& station, Selection selection, const std::vector<qint64>& sheets,
                     EventTurn& turn, ReportProgress& progress);

// The condition of a period on a date column, for the caller's own where clause: ?1 is
// lower and ?2 upper. Texts of seven characters become a plain range that an index serves.
struct PeriodCondition {
    std::string sql;
    std::string lower, upper;
};
PeriodCondition periodCondition(const QString& from, const QString& to);

} // namespace vandrel
