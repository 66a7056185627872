// The original itemised report: what is due, its record and its note, as a description.
#pragma once

#include "reports/itemised_report.h"

namespace vandrel {

// Sheets that are no corrections and were not reported yet; file ".amb", note "kuldo.txt".
const ItemisedReport& originalReport();

// Writes it from the scratch rows: writeItemisedReport.
void eredeti_floppy(Workstation& station, const ReportRequest& request, EventTurn& turn,
                    ReportProgress& progress, KeptTransaction& marks, ReportOutcome& outcome);

} // namespace vandrel
