// The check of a TAJ (the insurance number) by itself; whether anybody has it is the register's matter.
#pragma once

#include "foundation/dialogue.h"

#include <QString>

namespace vandrel {

// Nine digits, the ninth a check digit: three times the odd places and seven times the even ones, modulo 10.
enum class TajResult { good, wrongLength, wrongDigit, notDigits };
TajResult checkTaj(const QString& taj);
inline bool tajValid(const QString& taj) {
    return checkTaj(taj) == TajResult::good;
}
// Shows the message that belongs to the result; nothing for a good one.
void checkTajWithMessages(Dialogue& dialogue, const QString& taj);

} // namespace vandrel
