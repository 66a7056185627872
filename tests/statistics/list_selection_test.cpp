// Which sheets a list walks and in which order, and the checks that come first.
#include "statistics/list_selection.h"
#include "support/statistics_data.h"

using namespace Qt::StringLiterals;

namespace vandrel::test {

namespace {

constexpr auto trafficLog = StatisticsList::trafficLog;
constexpr auto itemised = StatisticsList::referrersItemised;
constexpr auto referrers = StatisticsList::referrersMonthly;
constexpr auto procedures = StatisticsList::proceduresDone;
constexpr auto costs = StatisticsList::individualCosts;
constexpr auto combined = StatisticsList::combined;
constexpr auto fees = StatisticsList::visitFees;

ListRequest days(const QString& from, const QString& to, const QStringList& categories,
                 const QString& fromUnit = u"0"_s, const QString& toUnit = u"9"_s) {
    return {.categories = categories, .from = from, .to = to, .fromCode = fromUnit, .toCode = toUnit};
}
ListRequest months(const QString& from, const QString& to, const QString& category, const QString& fromCode,
                   const QString& toCode) {
    return {.category = category, .from = from, .to = to, .fromCode = fromCode, .toCode = toCode};
}
ListRequest individual(const QString& from, const QString& to, const QString& code) {
    return {.from = from, .to = to, .code = code};
}

QString fieldName(const char* name) {
    return QString::fromLatin1(name);
}

} // namespace

TEST(ListSelectionTest, TakesTheSheetsOfTheRequestInTheListsOrder) {
    TestWorkstation clinic;
    addStatisticsData(clinic);
    clinic.data().executeScript(
        // On the last day and one more unit, spelt in small letters; a date without its dot, Nulls, and a
        // sheet whose journal number is earlier as a text.
        "insert into BETEG (AZONOSITO, SZAKREND, IGENYLO, TERITES, F_DATUM, F_IDO, NAPLO, SZEM_SZAM) values"
        " ('A010000008', '0a0000003', 'b1', '0a', '2008.03.31.', '07:30:00', '2', '123456788'),"
        " ('A010000009', '010000001', 'B1', '06', '2008.03.31.', '07:30:00', '10', '123456788'),"
        " ('A010000010', null, null, null, '2008.03.15.', null, null, null),"
        " ('A010000011', '010000001', 'B1', '01', null, null, null, '123456788');");
    const QString march1 = u"2008.03.01."_s, march31 = u"2008.03.31."_s, march5 = u"2008.03.05."_s;
    const QString march = u"2008.03"_s, april = u"2008.04"_s;
    ListRequest all = days(march1, march31, {});
    all.allCategories = true;

    struct Case {
        const char* what;
        StatisticsList list;
        ListRequest request;
        std::vector<qint64> sheets; // by the numbers in their keys
    };
    const Case cases[] = {
        {"no list reads another category than the eleven", trafficLog, all, {2, 3, 9, 4, 5, 1, 8}},
        {"by referrer", itemised, all, {5, 2, 3, 9, 4, 8, 1}},
        {"one category", trafficLog, days(march1, march31, {u"06"_s}), {9, 4}},
        {"a value that is no box of the panel", trafficLog, days(march1, march31, {u"0F"_s}), {}},
        {"one day, ends included", trafficLog, days(march5, march5, {u"01"_s, u"06"_s}), {2, 3}},
        {"the day after", trafficLog, days(u"2008.03.06."_s, u"2008.03.09."_s, {u"01"_s}), {}},
        {"units, ends included, case aside",
         trafficLog,
         days(march1, march31, {u"01"_s, u"0A"_s}, u"020000002"_s, u"0A0000003"_s),
         {5, 1, 8}},
        {"from later than to", trafficLog, days(march31, march1, {u"01"_s}), {}},
        {"referrers, ends included", referrers, months(march, march, u"01"_s, u"B1"_s, u"X9"_s), {2, 3, 1}},
        {"referrers, two months", referrers, months(march, april, u"01"_s, u"b1"_s, u"b1"_s), {2, 3, 6}},
        {"units of a month",
         procedures,
         months(march, march, u"01"_s, u"010000001"_s, u"020000002"_s),
         {2, 3, 1, 5}},
        {"a patient, blanks cut off", costs, individual(march, april, u" 123456788 "_s), {2, 3, 6, 9, 1, 8}},
        {"a hostile number", costs, individual(march, april, u"' or '1'='1"_s), {}},
        {"a unit in stored order", combined, individual(march, march, u"010000001"_s), {2, 3, 4, 7, 9}},
        {"first seven characters of the period",
         combined,
         individual(march1, march31, u"010000001"_s),
         {2, 3, 4, 7, 9}},
        {"fees of one unit", fees, individual(april, april, u"010000001"_s), {6}},
        {"fees of all units", fees, individual(march, march, u" "_s), {1, 2, 3, 4, 5, 7, 8, 9, 10}},
        {"fees of all units, whatever the field holds",
         fees,
         {.from = april, .to = april, .code = u"020000002"_s, .allUnits = true},
         {6}},
        {"list 2 reads no data", StatisticsList::unitPerformance, {}, {}},
    };
    for (const Case& c : cases) // the sheets were stored in the order of their keys
        EXPECT_EQ(selectSheets(clinic.workstation, c.list, c.request), c.sheets) << c.what;
}

TEST(ListSelectionTest, ChecksComplainInTheirOrder) {
    const QString fromDate = u"Dátum: -tól kitöltése kötelező!"_s,
                  toDate = u"Dátum: -ig kitöltése kötelező!"_s;
    const QString fromUnit = u"Szakrendelő: -tól kitöltése kötelező!"_s;
    const QString toUnit = u"Szakrendelő: -ig kitöltése kötelező!"_s;
    const QString code = u"Munkahelykód kitöltése kötelező!"_s;
    const QString day = u"2008.03.01."_s, noDay = u"    .  .  ."_s, month = u"2008.03"_s,
                  noMonth = u"    .  "_s;
    struct Case {
        StatisticsList list;
        ListRequest request;
        QString message; // empty: passes
        QString field;
    };
    const Case cases[] = {
        {trafficLog, days(noDay, noDay, {}, {}, {}), fromDate, fieldName(list_field::from)},
        {trafficLog, days(day, noDay, {}, {}, {}), toDate, fieldName(list_field::to)},
        {itemised, days(day, day, {}, u" "_s, {}), fromUnit, fieldName(list_field::fromCode)},
        {itemised, days(day, day, {}, u"1"_s, u"  "_s), toUnit, fieldName(list_field::toCode)},
        {itemised, days(day, day, {}), {}, {}},
        {referrers, months(noMonth, noMonth, {}, {}, {}), fromDate, fieldName(list_field::from)},
        {procedures, months(month, {}, {}, {}, {}), toDate, fieldName(list_field::to)},
        {procedures, months(month, month, {}, {}, {}), {}, {}},
        {costs, individual(noMonth, month, {}), fromDate, fieldName(list_field::from)},
        {combined, individual(month, noMonth, {}), toDate, fieldName(list_field::to)},
        {costs, individual(month, month, u" "_s), code, fieldName(list_field::code)},
        {fees, individual(month, month, {}), code, fieldName(list_field::code)},
        {fees, individual(month, month, u"1"_s), {}, {}},
        {fees, {.from = month, .to = month, .allUnits = true}, {}, {}},
        {StatisticsList::unitPerformance, {}, {}, {}},
    };
    for (const Case& c : cases) {
        const auto complaint = checkRequest(c.list, c.request);
        ASSERT_EQ(complaint.has_value(), !c.message.isEmpty()) << c.message.toStdString();
        if (!complaint) continue;
        EXPECT_EQ(complaint->message, c.message);
        EXPECT_EQ(complaint->field, c.field);
    }

    ListRequest request;
    ASSERT_TRUE(checkCategories(request).has_value());
    EXPECT_EQ(checkCategories(request)->message, u"Nincs kiválasztva térítési kategória!"_s);
    EXPECT_EQ(checkCategories(request)->title, u"Hiba"_s);
    request.categories = {u"61"_s};
    EXPECT_FALSE(checkCategories(request).has_value());
    EXPECT_TRUE(ter_ell(request, 10, 10));
    EXPECT_FALSE(ter_ell(request, 0, 9));
    EXPECT_FALSE(checkCategories({.allCategories = true}).has_value());

    EXPECT_FALSE(checkPeriodOrder(days(day, day, {})).has_value());
    const auto reversed = checkPeriodOrder(days(u"2008.03.02."_s, day, {}));
    ASSERT_TRUE(reversed.has_value());
    EXPECT_EQ(reversed->message, u"Hibás dátumintervallum (ig>tól)!"_s);
    EXPECT_EQ(reversed->title, u"Hiba"_s);
}

} // namespace vandrel::test
