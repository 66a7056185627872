// The institution the program runs for, as every room reads it. Writes nothing.
#pragma once

#include "foundation/workstation.h"

#include <QString>

#include <optional>

namespace vandrel {

// As stored; Null columns are empty texts.
struct Institution {
    QString Int_nev, Gyogyi_kod, Orv_kod, Szakrend_kod, irsz, City, cim, Bankszamla, Adoig_szam, NBK_KOD;
};

// The first row of intezet, or nullopt where the table is empty. Faults of the data file pass through.
std::optional<Institution> readInstitution(Workstation& station);

} // namespace vandrel
