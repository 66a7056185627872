// The check of a TAJ: length, check digit, and the messages that belong to what is wrong.
#include "foundation/taj_check.h"

using namespace Qt::StringLiterals;

namespace vandrel {

TajResult checkTaj(const QString& taj) {
    constexpr qsizetype length = 9;
    if (taj.size() != length) return TajResult::wrongLength;
    // Nine zeros pass by the arithmetic, and that is wanted: the exemption that once stood here asked for
    // eight zeros, which the length has refused already.
    int sum = 0;
    for (qsizetype place = 0; place < length; ++place) {
        const QChar c = taj[place];
        if (c < u'0' || c > u'9') return TajResult::notDigits;
        const int digit = c.unicode() - u'0';
        if (place == length - 1) return sum % 10 == digit ? TajResult::good : TajResult::wrongDigit;
        sum += digit * (place % 2 == 0 ? 3 : 7);
    }
    return TajResult::wrongDigit;
}

void checkTajWithMessages(Dialogue& dialogue, const QString& taj) {
    switch (checkTaj(taj)) {
    case TajResult::good:
        return;
    case TajResult::wrongLength:
        dialogue.tell(u"A TAJ számnak 9 számjegyűnek kell lennie !"_s, u"Hiba!"_s);
        return;
    case TajResult::wrongDigit:
        dialogue.tell(u"Hibás a TAJ szám, kérem javítsa!"_s, u"Hiba!"_s);
        return;
    case TajResult::notDigits:
        dialogue.tell(u"Ez a Taj. nem felel meg az előírásoknak!"_s);
        return;
    }
}

} // namespace vandrel
