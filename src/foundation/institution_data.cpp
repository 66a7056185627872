#include "foundation/institution_data.h"

namespace vandrel {

std::optional<Institution> readInstitution(Workstation& station) {
    Query row = station.files[DataFile::tetdata].query(
        "select Int_nev, Gyogyi_kod, Orv_kod, Szakrend_kod, irsz, City, cim, Bankszamla, Adoig_szam, NBK_KOD "
        "from intezet order by rowid limit 1");
    if (!row.next()) return std::nullopt;
    return Institution{row.text(0), row.text(1), row.text(2), row.text(3), row.text(4),
                       row.text(5), row.text(6), row.text(7), row.text(8), row.text(9)};
}

} // namespace vandrel
