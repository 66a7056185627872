#include "reports/report_period.h"

#include "platform/format.h"

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

QString checkPeriods(const ReportRequest& request) {
    const bool corrected = request.mode == QLatin1String("1");
    const bool onlyFrom = request.mode == QLatin1String("E"); // its to-field is hidden
    const struct {
        const QString& text;
        QString message;
        bool asked;
    } checks[] = {
        {request.from, QStringLiteral("Hibás induló dátum!"), true},
        {request.to, QStringLiteral("Hibás vég dátum!"), !onlyFrom},
        {request.settlement, QStringLiteral("Hibás elszámolási időszak dátum!"), corrected},
    };
    for (const auto& check : checks)
        if (check.asked && check.text == format::emptyPeriod) return check.message;
    return {};
}

} // namespace vandrel
