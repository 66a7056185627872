// One run of the monthly report: the checks, the target test, the selection with its marks, and the writer.
// Knows no window: boxes go to the workstation's dialogue, the display goes to a port.
#pragma once

#include "foundation/workstation.h"
#include "reports/report_outcome.h"
#include "reports/report_progress.h"
#include "reports/report_request.h"

namespace vandrel {

// Runs it all, boxes included; raises no Fault. The report file lies in station.folder, the rest on
// station.reportTarget. station.serveEvents gets a turn about every 20 ms. The archiver is started and not
// waited for (station.packer.waitForFinished() does that).
ReportOutcome runReport(Workstation& station, const ReportRequest& request, ReportProgress& progress);

} // namespace vandrel
