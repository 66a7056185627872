#include "reports/original_report.h"

using namespace Qt::StringLiterals;

namespace vandrel {

const ItemisedReport& originalReport() {
    static const ItemisedReport report = {originalSelection, originalRecord,       u".amb"_s,
                                          u"kuldo.txt"_s,    {u"Kísérőjegyzék"_s}, &ReportRequest::from};
    return report;
}

void eredeti_floppy(Workstation& station, const ReportRequest& request, EventTurn& turn,
                    ReportProgress& progress, KeptTransaction& marks, ReportOutcome& outcome) {
    writeItemisedReport(station, originalReport(), request, turn, progress, marks, outcome);
}

} // namespace vandrel
