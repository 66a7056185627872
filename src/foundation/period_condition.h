// The condition of a period on a sheet's date of care. Asks no data file.
#pragma once

#include <QString>

#include <string>

namespace vandrel {

inline constexpr qsizetype monthTextLength = 7; // éééé.hh
inline constexpr qsizetype dayTextLength = 11;  // éééé.hh.nn.

// For the caller's own where clause over BETEG; the first "?" is lower, the second one upper.
struct PeriodCondition {
    std::string sql;
    QString lower, upper;
};

// True for a sheet whose first length characters of F_DATUM lie between the two texts, ends included; a Null
// date is in no period. Texts of just that length become a plain range, which the column's index serves.
PeriodCondition periodCondition(const QString& from, const QString& to, qsizetype length = monthTextLength);

} // namespace vandrel
