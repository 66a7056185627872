#include "reports/report_period.h"

#include "platform/format.h"

using namespace Qt::StringLiterals;

namespace vandrel {

namespace {

using Request = const ReportRequest&;

// All of them lead back to the from-field.
constexpr OrderedCheck<Request> periodChecks[] = {
    {[](Request r) { return r.from == format::emptyPeriod; }, u"Hibás induló dátum!", "IdoszakTol"},
    // The EU report's to-field is hidden.
    {[](Request r) { return r.mode != "E"_L1 && r.to == format::emptyPeriod; }, u"Hibás vég dátum!",
     "IdoszakTol"},
    {[](Request r) { return r.mode == "1"_L1 && r.settlement == format::emptyPeriod; },
     u"Hibás elszámolási időszak dátum!", "IdoszakTol"},
};

} // namespace

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

std::optional<CheckFailure> checkPeriods(const ReportRequest& request) {
    return firstFailure(periodChecks, request);
}

} // namespace vandrel
