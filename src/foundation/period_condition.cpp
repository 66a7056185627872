#include "foundation/period_condition.h"

namespace vandrel {

PeriodCondition periodCondition(const QString& from, const QString& to, qsizetype length) {
    if (from.size() == length && to.size() == length)
        // The same as comparing the first characters: U+10FFFF sorts after whatever may follow them.
        return {"F_DATUM>=? and F_DATUM<?", from, to + QString::fromUcs4(U"\U0010FFFF")};
    const std::string first = "substr(F_DATUM,1," + std::to_string(length) + ")";
    return {first + ">=? and " + first + "<=?", from, to};
}

} // namespace vandrel
