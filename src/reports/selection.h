// The selection of an itemised report: the sheets that are due in a period, laid out as rows of a scratch
// table, each sheet marked as reported on the way. Knows no window and writes no file.
#pragma once

#include "foundation/workstation.h"
#include "platform/event_turn.h"
#include "reports/report_progress.h"
#include "reports/sheet_rows.h"

#include <string_view>
#include <vector>

namespace vandrel {

// What tells the selections of two reports apart.
struct SheetSelection {
    std::string_view table; // of tetseged.mdb
    std::string_view mark;  // column of BETEG that becomes 1
    std::string_view due;   // condition on BETEG beside the period
    std::span<const RowColumn> headColumns;
};

// The catalogue's texts compare without regard to case.
inline constexpr SheetSelection originalSelection = {"Leval_er", "FLOPPY", "FLOPPY=0 and JAV='0'",
                                                     originalHeadColumns};
inline constexpr SheetSelection correctedSelection = {
    "Leval_jav", "FLOPPY2", "FLOPPY2=0 and (JAV='1' or JAV='2')", correctedHeadColumns};

// Sheets of all periods, for the screen's counter.
qint64 countSheets(Workstation& station);

// Deletes every row of both scratch tables; a damaged scratch file is replaced first.
void emptyScratchTables(Workstation& station);

// The rowids of the sheets of a period whose first seven characters of F_DATUM lie between the two texts,
// ends included, in stored order. An own question instead of a cursor: the marks change the table below.
std::vector<qint64> dueSheets(Workstation& station, const SheetSelection& selection, const QString& from,
                              const QString& to, EventTurn& turn);

// Writes the rows of each sheet that is still due and marks it: a sheet without lines gives no row and is
// marked all the same. The caller holds the transaction of the marks. When a fault breaks the walk, the rows
// written so far are kept, and the sheet at fault has no mark. Gives the number of rows written.
qint64 flattenSheets(Workstation& station, const SheetSelection& selection, const std::vector<qint64>& sheets,
                     EventTurn& turn, ReportProgress& progress);

} // namespace vandrel
