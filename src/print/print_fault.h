// What the user is told when printing or saving a document went wrong.
#pragma once

#include "platform/fault.h"

namespace vandrel {

using namespace Qt::StringLiterals;

inline QString printFaultText(const Fault& fault) {
    if (fault.number() == fault::noPrinter)
        return u"Nincs telepítve nyomtató, Ambuláns adatlap nem nyomtatható ki!"_s;
    return u"Hiba lépett fel a nyomtatás során! %1\n%2"_s.arg(fault.number()).arg(fault.text());
}

// The same of a file that a document was to be saved to.
inline QString saveFaultText(const Fault& fault) {
    return u"A fájl mentése nem sikerült! %1\n%2"_s.arg(fault.number()).arg(fault.text());
}

} // namespace vandrel
