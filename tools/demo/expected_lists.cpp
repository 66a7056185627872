#include "demo/expected_lists.h"

#include "demo/visits.h"

#include <QMap>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace vandrel::demo {

namespace {

QString typed(const Visit& visit, const QString& field, const QString& proposed = {}) {
    for (const std::vector<Entry>* entries : {&visit.picked, &visit.fields})
        for (const Entry& entry : *entries)
            if (entry.first == field) return entry.second;
    return proposed;
}

QString category(const Visit& visit) {
    return typed(visit, u"Terites"_s, u"01"_s);
}

int quantity(const Line& line) {
    return line.quantity.isEmpty() ? 1 : line.quantity.toInt();
}

// As a bookkeeper writes it: a decimal comma, no grouping, no trailing zeros.
QString figure(double value) {
    QString text = QString::number(value, 'f', 4);
    while (text.endsWith(u'0'))
        text.chop(1);
    if (text.endsWith(u'.')) text.chop(1);
    return text.replace(u'.', u',');
}

// Quantity, points of all, and their value.
QStringList figures(int count, const QString& code, const QString& unit, const Tariff& tariff) {
    const double points = count * tariff.points.value(code);
    return {QString::number(count), figure(points), figure(points * tariff.multipliers.value(unit, 1))};
}

QStringList sorted(QStringList rows) {
    rows.sort();
    return rows;
}

} // namespace

int sheetsOfTheBoxes() {
    const QStringList boxes = {u"01"_s, u"02"_s, u"03"_s, u"04"_s, u"05"_s, u"06"_s,
                               u"09"_s, u"0A"_s, u"0D"_s, u"0E"_s, u"61"_s};
    return static_cast<int>(std::ranges::count_if(
        visits(), [&boxes](const Visit& visit) { return boxes.contains(category(visit)); }));
}

QStringList referrerRows(const Tariff& tariff) {
    QStringList rows;
    for (const Visit& visit : visits()) {
        const QString referrer = typed(visit, u"Igenylo"_s);
        if (category(visit) != u"01" || referrer.isEmpty()) continue;
        for (const Line& line : visit.lines)
            rows << (QStringList{referrer, visit.unit, line.code} +
                     figures(quantity(line), line.code, visit.unit, tariff))
                        .join(u';');
    }
    return sorted(rows);
}

QStringList procedureRows(const Tariff& tariff) {
    QMap<QString, QMap<QString, int>> units;
    for (const Visit& visit : visits())
        if (category(visit) == u"01")
            for (const Line& line : visit.lines)
                units[visit.unit][line.code] += quantity(line);
    QStringList rows;
    for (auto unit = units.cbegin(); unit != units.cend(); ++unit)
        for (auto code = unit->cbegin(); code != unit->cend(); ++code)
            rows << (QStringList{unit.key(), code.key()} + figures(*code, code.key(), unit.key(), tariff))
                        .join(u';');
    return sorted(rows);
}

QStringList patientRows(const QString& taj, const Tariff& tariff) {
    QStringList rows;
    for (const Visit& visit : visits()) {
        if (visit.taj != taj) continue;
        for (const Line& line : visit.lines)
            rows << (QStringList{visit.name, taj, visit.unit, visit.date, line.code} +
                     figures(quantity(line), line.code, visit.unit, tariff))
                        .join(u';');
    }
    return sorted(rows);
}

QStringList unitRows(const QString& unit) {
    QMap<QString, int> codes;
    for (const Visit& visit : visits())
        if (visit.unit == unit)
            for (const Line& line : visit.lines)
                codes[line.code] += quantity(line);
    QStringList rows; // nobody lies in bed here
    for (auto code = codes.cbegin(); code != codes.cend(); ++code)
        rows << u"%1;%2;0;%2"_s.arg(code.key()).arg(*code);
    return sorted(rows);
}

QStringList visitFeeRows(const QString& unit) {
    QStringList rows;
    for (const Visit& visit : visits())
        if (visit.unit == unit)
            rows << u"%1 (%2);%3;%4"_s.arg(visit.name, visit.taj, visit.date,
                                           typed(visit, u"VizDijOsszeg"_s, u"0"_s));
    return sorted(rows);
}

} // namespace vandrel::demo
