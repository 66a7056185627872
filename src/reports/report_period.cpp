#include "reports/report_period.h"

#include "foundation/format.h"

namespace vandrel {

ReportPeriods defaultPeriods(const QString& mode, QDate today) {
    int year = today.year();
    int month = today.month() - (mode == QLatin1String("1") ? 2 : 1);
    if (month <= 0) { // 0 is December, -1 November
        month += 12;
        --year;
    }
    const bool december = month == 12;
    return {format::period(year, month),
            format::period(december ? year + 1 : year, december ? 1 : month + 1)};
}

PeriodFault checkPeriods(const ReportRequest& request) {
    struct Check {
        const QString& text;
        QString message;
        QString field;
        bool asked;
    };
    const bool corrected = request.mode == QLatin1String("1");
    const bool onlyFrom = request.mode == QLatin1String("E"); // its to-field is hidden
    const Check checks[] = {
        {request.from, QStringLiteral("Hibás induló dátum!"), QStringLiteral("from"), true},
        {request.to, QStringLiteral("Hibás vég dátum!"), QStringLiteral("to"), !onlyFrom},
        {request.settlement, QStringLiteral("Hibás elszámolási időszak dátum!"), QStringLiteral("settlement"),
         corrected},
    };
    for (const Check& check : checks)
        if (check.asked && check.text == format::emptyPeriod) return {check.message, check.field};
    return {};
}

} // namespace vandrel
