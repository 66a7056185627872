#include "platform/format.h"

#include <QStringList>

#include <cmath>

using namespace Qt::StringLiterals;

namespace vandrel::format {

namespace {

constexpr QChar noBreakSpace(0x00A0);

QString grouped(const QString& digits) {
    QString result = digits;
    for (qsizetype place = result.size() - 3; place > 0; place -= 3)
        result.insert(place, noBreakSpace);
    return result;
}

QString padded(int value, int width) {
    return QString::number(value).rightJustified(width, '0'_L1);
}

} // namespace

QString shortDate(QDate date) {
    if (!date.isValid()) return {};
    return padded(date.year(), 4) + '.'_L1 + padded(date.month(), 2) + '.'_L1 + padded(date.day(), 2) +
           '.'_L1;
}

QString longDate(QDate date) {
    static const QStringList months = {u"január"_s,     u"február"_s, u"március"_s,  u"április"_s,
                                       u"május"_s,      u"június"_s,  u"július"_s,   u"augusztus"_s,
                                       u"szeptember"_s, u"október"_s, u"november"_s, u"december"_s};
    if (!date.isValid()) return {};
    return u"%1. %2 %3."_s.arg(date.year()).arg(months[date.month() - 1]).arg(date.day());
}

QString longTime(QTime time) {
    return shortTime(time) + ':'_L1 + padded(time.second(), 2);
}

QString shortTime(QTime time) {
    return padded(time.hour(), 2) + ':'_L1 + padded(time.minute(), 2);
}

QString period(int year, int month) {
    return padded(year, 4) + '.'_L1 + padded(month, 2);
}

std::optional<QDate> parseDate(const QString& text) {
    if (text.size() != 11) return std::nullopt;
    for (int i = 0; i < 11; ++i) {
        const bool dot = i == 4 || i == 7 || i == 10;
        const QChar c = text[i];
        if (dot ? c != '.'_L1 : (c < '0'_L1 || c > '9'_L1)) return std::nullopt;
    }
    const QDate date(text.mid(0, 4).toInt(), text.mid(5, 2).toInt(), text.mid(8, 2).toInt());
    if (!date.isValid()) return std::nullopt;
    return date;
}

QString thousands(double value) {
    // Rounded is what the number says, at the digits that number() writes: 750 times 1.15 is 862.5, although
    // the product of the two binary fractions lies a hair below.
    const double said = value == std::floor(value) ? value : QString::number(value, 'g', 15).toDouble();
    const double rounded = std::round(said); // half away from zero
    const QString digits = QString::number(std::fabs(rounded), 'f', 0);
    return (rounded < 0 ? u"-"_s : QString()) + grouped(digits);
}

QString percent(double value) {
    const double rounded = std::round(value * 100.0) / 100.0;
    const QString digits = QString::number(std::fabs(rounded), 'f', 2);
    return (rounded < 0 ? u"-"_s : QString()) + grouped(digits.left(digits.size() - 3)) + ','_L1 +
           digits.right(2) + u" %"_s;
}

QString number(double value) {
    if (value == std::trunc(value) && std::abs(value) < 1e9) return QString::number(static_cast<int>(value));
    return QString::number(value, 'g', 15).replace('.'_L1, ','_L1);
}

std::optional<double> parseNumber(const QString& text) {
    QString plain = text.trimmed();
    if (plain.contains('.'_L1)) return std::nullopt;
    plain.replace(','_L1, '.'_L1);
    bool good = false;
    const double value = plain.toDouble(&good);
    if (!good || !std::isfinite(value)) return std::nullopt;
    return value;
}

} // namespace vandrel::format
