// The periods of a monthly report: what a screen proposes and what a run asks of them.
#pragma once

#include "foundation/checks.h"
#include "reports/report_request.h"

#include <QDate>
#include <QString>

namespace vandrel {

struct ReportPeriods {
    QString period;     // for both the from- and the to-field, "éééé.hh"
    QString settlement; // "éééé.hh"
};

// Modes "0" and "E" propose last month, mode "1" the month before that; the settlement is the month after.
ReportPeriods defaultPeriods(const QString& mode, QDate today);

// The first unfilled mask, nullopt when all are filled; its focus is the from-field whichever it was. A
// filled period is not tested further, and no sheet is looked at.
std::optional<CheckFailure> checkPeriods(const ReportRequest& request);

} // namespace vandrel
