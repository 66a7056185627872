// The writer of the original itemised report: the ".amb" file in the working folder, the covering note, the
// marker file and the archive on the target. Reads only the scratch table Leval_er and the institution.
#pragma once

#include "platform/event_turn.h"
#include "reports/report_run.h"

namespace vandrel {

// period is the from-field's text. Shows its own boxes and raises no Fault. Marks that the selection has set
// stay, whatever happens here. Fills records, procedures, reportFile and complete of the outcome; complete is
// true when the run came to the success text (which does not wait for the archiver).
void eredeti_floppy(Workstation& station, const QString& period, EventTurn& turn, ReportProgress& progress,
                    ReportOutcome& outcome);

} // namespace vandrel
