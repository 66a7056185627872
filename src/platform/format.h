// How dates, times and amounts are written all over the program, whatever the machine's locale.
#pragma once

#include <QDate>
#include <QDateTime>
#include <QString>

#include <optional>

namespace vandrel::format {

using namespace Qt::StringLiterals;

// The empty date of masked fields: the mask's literals with blanks.
inline const QString emptyDate = u"    .  .  ."_s;
// The empty period (year and month) of masked fields.
inline const QString emptyPeriod = u"    .  "_s;

// éééé.hh.nn. ("2008.03.12."), 11 characters; an invalid date gives an empty text.
QString shortDate(QDate date);
// "2008. április 3."
QString longDate(QDate date);
// "14:05:09" and "14:05"
QString longTime(QTime time);
QString shortTime(QTime time);
// "2008.03", the mask of report periods
QString period(int year, int month);
// The date in an éééé.hh.nn. text, or nullopt when it is no date of the calendar.
std::optional<QDate> parseDate(const QString& text);

// The format "##,##": thousands grouped by a no-break space, rounded half away from zero to a whole number.
QString thousands(double value);
// The format "##,##0.00" with " %" after it: grouped, two decimals, decimal comma ("12,50 %").
QString percent(double value);
// A number as the program writes it into texts: decimal comma, no needless zeros ("1,5", "12").
QString number(double value);
// A typed number with a decimal comma; nullopt when it is none.
std::optional<double> parseNumber(const QString& text);

} // namespace vandrel::format
