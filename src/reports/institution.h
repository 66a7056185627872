// The institution's data as the reports read them.
#pragma once

#include "foundation/workstation.h"

#include <QString>

#include <optional>

namespace vandrel {

// Null columns are empty texts.
struct Institution {
    QString Int_nev, Gyogyi_kod, Szakrend_kod, Bankszamla, Adoig_szam, NBK_KOD;
};

// The first row of intezet, or nullopt where the table is empty. Faults of the data file pass through.
std::optional<Institution> readInstitution(Workstation& station);

} // namespace vandrel
