// An itemised report as a description, and the writer that walks it: the report file in the working folder,
// the covering note, the marker file and the archive on the target. Reads only the scratch table and the
// institution.
#pragma once

#include "platform/event_turn.h"
#include "platform/kept_transaction.h"
#include "reports/covering_note.h"
#include "reports/record_table.h"
#include "reports/report_outcome.h"
#include "reports/report_progress.h"
#include "reports/report_request.h"
#include "reports/selection.h"

#include <QString>

#include <span>

namespace vandrel {

struct ItemisedReport {
    SheetSelection selection;
    std::span<const RecordColumn> record; // columns of the selection's scratch table
    QString extension;                    // of the report file, with its dot
    QString noteName;                     // of the note, in the working folder and on the target
    NoteForm note;
    // The text of the screen that head line 3 and the note call the period.
    QString ReportRequest::*period;
};

// Shows its own boxes and raises no Fault. marks is the open transaction of the selection: it is committed
// when all files are on the disk and before success is said, and before any box: marks that are set stay,
// whatever fault is met here. Fills records, procedures, reportFile, the fault's place and complete of the
// outcome; complete is true when the run came to the success text, whatever became of the archive.
void writeItemisedReport(Workstation& station, const ItemisedReport& report, const ReportRequest& request,
                         EventTurn& turn, ReportProgress& progress, KeptTransaction& marks,
                         ReportOutcome& outcome);

} // namespace vandrel
