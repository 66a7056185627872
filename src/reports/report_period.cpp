#include "reports/report_period.h"

#include "platform/format.h"

using namespace Qt::StringLiterals;

namespace vandrel {

ReportPeriods defaultPeriods(const QString& mode, QDate today) {
    int year = today.year();
    int month = today.month() - (mode == "1"_L1 ? 2 : 1);
    if (month <= 0) { // 0 is December, -1 November
        month += 12;
        --year;
    }
    const bool december = month == 12;
    return {format::period(year, month),
            format::period(december ? year + 1 : year, december ? 1 : month + 1)};
}

QString checkPeriods(const ReportRequest& request) {
    const bool corrected = request.mode == "1"_L1;
    const bool onlyFrom = request.mode == "E"_L1; // its to-field is hidden
    const struct {
        const QString& text;
        QString message;
        bool asked;
    } checks[] = {
        {request.from, u"Hibás induló dátum!"_s, true},
        {request.to, u"Hibás vég dátum!"_s, !onlyFrom},
        {request.settlement, u"Hibás elszámolási időszak dátum!"_s, corrected},
    };
    for (const auto& check : checks)
        if (check.asked && check.text == format::emptyPeriod) return check.message;
    return {};
}

} // namespace vandrel
