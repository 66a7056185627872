#include "statistics/list_selection.h"

#include "foundation/period_condition.h"
#include "platform/format.h"

#include <span>
#include <string>

using namespace Qt::StringLiterals;

namespace vandrel {

namespace {

bool unfilled(const QString& date, const QString& mask) {
    return date.trimmed().isEmpty() || date == mask;
}

using Check = OrderedCheck<const ListRequest&>;

constexpr Check trafficLogChecks[] = {
    {[](const ListRequest& r) { return unfilled(r.from, format::emptyDate); },
     u"Dátum: -tól kitöltése kötelező!", list_field::from},
    {[](const ListRequest& r) { return unfilled(r.to, format::emptyDate); },
     u"Dátum: -ig kitöltése kötelező!", list_field::to},
    {[](const ListRequest& r) { return r.fromCode.trimmed().isEmpty(); },
     u"Szakrendelő: -tól kitöltése kötelező!", list_field::fromCode},
    {[](const ListRequest& r) { return r.toCode.trimmed().isEmpty(); },
     u"Szakrendelő: -ig kitöltése kötelező!", list_field::toCode},
};

// Nothing else is asked for on this panel: codes and category may stay empty, and then nothing is found.
constexpr Check monthlyChecks[] = {
    {[](const ListRequest& r) { return unfilled(r.from, format::emptyPeriod); },
     u"Dátum: -tól kitöltése kötelező!", list_field::from},
    {[](const ListRequest& r) { return unfilled(r.to, format::emptyPeriod); },
     u"Dátum: -ig kitöltése kötelező!", list_field::to},
};

// Deliberate: the wording of the code field is the unit's for list 6 too, where it holds a TAJ.
constexpr Check individualChecks[] = {
    monthlyChecks[0],
    monthlyChecks[1],
    {[](const ListRequest& r) { return !r.allUnits && r.code.trimmed().isEmpty(); },
     u"Munkahelykód kitöltése kötelező!", list_field::code},
};

constexpr Check categoryChecks[] = {
    {[](const ListRequest& r) { return !ter_ell(r, 0, feeCategoryCount - 1); },
     u"Nincs kiválasztva térítési kategória!", list_field::categories, u"Hiba"},
};
constexpr Check periodOrderChecks[] = {
    {[](const ListRequest& r) { return r.from > r.to; }, u"Hibás dátumintervallum (ig>tól)!", list_field::to,
     u"Hiba"},
};

std::span<const Check> checksOf(StatisticsList list) {
    switch (list) {
    case StatisticsList::trafficLog:
    case StatisticsList::referrersItemised:
        return trafficLogChecks;
    case StatisticsList::referrersMonthly:
    case StatisticsList::proceduresDone:
        return monthlyChecks;
    case StatisticsList::individualCosts:
    case StatisticsList::combined:
    case StatisticsList::visitFees:
        return individualChecks;
    case StatisticsList::unitPerformance: // made without any input
        break;
    }
    return {};
}

bool ticked(const ListRequest& request, int box) {
    return request.allCategories ||
           request.categories.contains(feeCategoryBoxes()[static_cast<std::size_t>(box)].value);
}

// A question over BETEG that grows condition by condition, each value bound.
class SheetQuestion {
  public:
    // The condition's "?" is the place of the value.
    void where(std::string_view condition, const QString& value) {
        m_where += m_where.empty() ? " where " : " and ";
        add(condition, value);
    }
    void categories(const ListRequest& request) {
        m_where += m_where.empty() ? " where (" : " and (";
        for (int box = 0; box < feeCategoryCount; ++box) {
            if (!ticked(request, box)) continue;
            if (ter_ell(request, 0, box - 1)) m_where += " or ";
            add("TERITES=?", feeCategoryBoxes()[static_cast<std::size_t>(box)].value);
        }
        m_where += ter_ell(request, 0, feeCategoryCount - 1) ? ")" : "0)";
    }
    void period(const QString& from, const QString& to, qsizetype length) {
        const PeriodCondition condition = periodCondition(from, to, length);
        where(condition.sql, condition.lower);
        m_values << condition.upper;
    }
    std::vector<qint64> run(Workstation& station, std::string_view order) {
        const std::string sql = "select rowid from BETEG" + m_where + " order by " + std::string(order);
        Query rows = station.files[DataFile::tetdata].query(sql);
        int parameter = 0;
        for (const QString& value : m_values)
            rows.bind(++parameter, value);
        std::vector<qint64> sheets;
        while (rows.next())
            sheets.push_back(rows.integer(0));
        return sheets;
    }

  private:
    void add(std::string_view condition, const QString& value) {
        m_where += condition;
        m_values << value;
    }

    std::string m_where;
    QStringList m_values;
};

} // namespace

const std::array<FeeCategoryBox, feeCategoryCount>& feeCategoryBoxes() {
    static const std::array<FeeCategoryBox, feeCategoryCount> boxes{{
        {u"biztosított járóbeteg (01)"_s, u"01"_s},
        {u"menekült járóbeteg (02)"_s, u"02"_s},
        {u"államközi szerződés alapján ellátott járóbeteg (03)"_s, u"03"_s},
        {u"nem biztosított járóbeteg (04)"_s, u"04"_s},
        {u"menedékes járóbeteg (05)"_s, u"05"_s},
        {u"fekvőbeteg (06)"_s, u"06"_s},
        {u"költségvetésből támogatott ellátás (09)"_s, u"09"_s},
        {u"befogadott külföldi állampolgár (0A)"_s, u"0A"_s},
        {u"menekült, menedékes státuszt kérelmező (0D)"_s, u"0D"_s},
        {u"elszámoláson alapuló nemzetközi szerződés alapján (0E)"_s, u"0E"_s},
        {u"magyar bizt. alapján kórházi fekvőbeteg részére (61)"_s, u"61"_s},
    }};
    return boxes;
}

bool ter_ell(const ListRequest& request, int from, int to) {
    for (int box = from; box <= to; ++box)
        if (ticked(request, box)) return true;
    return false;
}

std::optional<CheckFailure> checkCategories(const ListRequest& request) {
    return firstFailure(categoryChecks, request);
}

std::optional<CheckFailure> checkPeriodOrder(const ListRequest& request) {
    return firstFailure(periodOrderChecks, request);
}

std::optional<CheckFailure> checkRequest(StatisticsList list, const ListRequest& request) {
    return firstFailure(checksOf(list), request);
}

std::vector<qint64> selectSheets(Workstation& station, StatisticsList list, const ListRequest& request) {
    SheetQuestion question;
    switch (list) {
    case StatisticsList::unitPerformance:
        return {};
    case StatisticsList::trafficLog:
    case StatisticsList::referrersItemised:
        question.categories(request);
        question.period(request.from, request.to, dayTextLength);
        question.where("SZAKREND>=?", request.fromCode);
        question.where("SZAKREND<=?", request.toCode);
        return question.run(station, list == StatisticsList::trafficLog
                                         ? "SZAKREND, TERITES, F_DATUM, F_IDO, NAPLO, rowid"
                                         : "IGENYLO, TERITES, F_DATUM, F_IDO, NAPLO, rowid");
    case StatisticsList::referrersMonthly:
        question.where("TERITES=?", request.category);
        question.period(request.from, request.to, monthTextLength);
        question.where("IGENYLO>=?", request.fromCode);
        question.where("IGENYLO<=?", request.toCode);
        return question.run(station, "IGENYLO, rowid");
    case StatisticsList::proceduresDone:
        question.where("TERITES=?", request.category);
        question.period(request.from, request.to, monthTextLength);
        question.where("SZAKREND>=?", request.fromCode);
        question.where("SZAKREND<=?", request.toCode);
        return question.run(station, "SZAKREND, rowid");
    case StatisticsList::individualCosts:
        question.where("SZEM_SZAM=?", request.code.trimmed());
        question.period(request.from, request.to, monthTextLength);
        return question.run(station, "SZAKREND, rowid");
    case StatisticsList::combined:
        question.period(request.from.left(monthTextLength), request.to.left(monthTextLength),
                        monthTextLength);
        question.where("SZAKREND=?", request.code);
        return question.run(station, "rowid");
    case StatisticsList::visitFees:
        question.period(request.from, request.to, monthTextLength);
        if (!request.allUnits && !request.code.trimmed().isEmpty())
            question.where("SZAKREND=?", request.code);
        return question.run(station, "rowid"); // no order of its own: as the sheets were stored
    }
    return {};
}

} // namespace vandrel
