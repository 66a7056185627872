// What the user is told when printing or saving a document went wrong.
#pragma once

#include "platform/fault.h"

namespace vandrel {

inline QString printFaultText(const Fault& fault) {
    if (fault.number() == fault::noPrinter)
        return QStringLiteral("Nincs telepítve nyomtató, Ambuláns adatlap nem nyomtatható ki!");
    return QStringLiteral("Hiba lépett fel a nyomtatás során! %1\n%2").arg(fault.number()).arg(fault.text());
}

} // namespace vandrel
