#include "platform/format.h"

#include <QStringList>

#include <cmath>

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
    return QString::number(value).rightJustified(width, QLatin1Char('0'));
}

} // namespace

QString shortDate(QDate date) {
    if (!date.isValid()) return {};
    return padded(date.year(), 4) + QLatin1Char('.') + padded(date.month(), 2) + QLatin1Char('.') +
           padded(date.day(), 2) + QLatin1Char('.');
}

QString longDate(QDate date) {
    static const QStringList months = {
        QStringLiteral("január"),  QStringLiteral("február"),   QStringLiteral("március"),
        QStringLiteral("április"), QStringLiteral("május"),     QStringLiteral("június"),
        QStringLiteral("július"),  QStringLiteral("augusztus"), QStringLiteral("szeptember"),
        QStringLiteral("október"), QStringLiteral("november"),  QStringLiteral("december")};
    if (!date.isValid()) return {};
    return QStringLiteral("%1. %2 %3.").arg(date.year()).arg(months[date.month() - 1]).arg(date.day());
}

QString longTime(QTime time) {
    return shortTime(time) + QLatin1Char(':') + padded(time.second(), 2);
}

QString shortTime(QTime time) {
    return padded(time.hour(), 2) + QLatin1Char(':') + padded(time.minute(), 2);
}

QString period(int year, int month) {
    return padded(year, 4) + QLatin1Char('.') + padded(month, 2);
}

std::optional<QDate> parseDate(const QString& text) {
    if (text.size() != 11) return std::nullopt;
    for (int i = 0; i < 11; ++i) {
        const bool dot = i == 4 || i == 7 || i == 10;
        const QChar c = text[i];
        if (dot ? c != QLatin1Char('.') : (c < QLatin1Char('0') || c > QLatin1Char('9'))) return std::nullopt;
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
    return (rounded < 0 ? QStringLiteral("-") : QString()) + grouped(digits);
}

QString percent(double value) {
    const double rounded = std::round(value * 100.0) / 100.0;
    const QString digits = QString::number(std::fabs(rounded), 'f', 2);
    return (rounded < 0 ? QStringLiteral("-") : QString()) + grouped(digits.left(digits.size() - 3)) +
           QLatin1Char(',') + digits.right(2) + QStringLiteral(" %");
}

QString number(double value) {
    if (value == std::trunc(value) && std::abs(value) < 1e9) return QString::number(static_cast<int>(value));
    return QString::number(value, 'g', 15).replace(QLatin1Char('.'), QLatin1Char(','));
}

std::optional<double> parseNumber(const QString& text) {
    QString plain = text.trimmed();
    if (plain.contains(QLatin1Char('.'))) return std::nullopt;
    plain.replace(QLatin1Char(','), QLatin1Char('.'));
    bool good = false;
    const double value = plain.toDouble(&good);
    if (!good || !std::isfinite(value)) return std::nullopt;
    return value;
}

} // namespace vandrel::format
