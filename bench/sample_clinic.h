// A made-up clinic of any size for the measurements: the same bytes for the same size on every machine.
// Knows the catalogue's columns; knows no rule of the program.
#pragma once

#include <QString>

namespace vandrel::bench {

using namespace Qt::StringLiterals;

inline const QString smallMonth = u"2008.02"_s; // 8,000 sheets are due in it
inline const QString largeMonth = u"2008.03"_s; // 40,000 sheets
inline constexpr int smallMonthSheets = 8'000;
inline constexpr int largeMonthSheets = 40'000;

// Makes a program folder with so many sheets (48,000 or more) of 3 procedure lines on average, a quarter as
// many patients, 5,000 procedures and 14,000 diagnoses. The sheets of a month lie together but for some that
// were entered late; a hundredth as many corrections, which no original report takes, lie between them. A
// folder that was already made whole is left as it is.
void makeSampleClinic(const QString& folder, int sheets);

// Clears the marks and scratch rows that a report has left, so that it can be made again.
void releaseMonth(const QString& folder, const QString& month);

} // namespace vandrel::bench
