#include "sheet/sheet_settings.h"

#include "foundation/institution_data.h"
#include "foundation/row_values.h"

using namespace Qt::StringLiterals;

namespace vandrel {

InstitutionLines institutionLines(Workstation& station) {
    InstitutionLines lines;
    const std::optional<Institution> institution = readInstitution(station);
    if (!institution) return lines;
    lines.name = institution->Int_nev.trimmed();
    const QString city = institution->City.trimmed();
    const QString street = institution->cim.trimmed();
    lines.address = institution->irsz.trimmed();
    if (!city.isEmpty()) lines.address += (lines.address.isEmpty() ? QString() : u" - "_s) + city;
    if (!street.isEmpty()) lines.address += (lines.address.isEmpty() ? QString() : u", "_s) + street;
    return lines;
}

std::array<UserField, 5> userFields(Workstation& station) {
    std::array<UserField, 5> result;
    const std::optional<Query> row =
        firstRow(station.files[DataFile::tetdata], "EGYEBPAR",
                 "Felh1_nev, Felh2_nev, Felh3_nev, Felh4_nev, Felh5_nev, Felh1_hossz, Felh2_hossz, "
                 "Felh3_hossz, Felh4_hossz, Felh5_hossz");
    if (!row) return result;
    for (int i = 0; i < 5; ++i) {
        UserField& field = result[static_cast<std::size_t>(i)];
        // Empty captions often hold one blank.
        if (const QString caption = row->text(i); !caption.trimmed().isEmpty()) field.caption = caption;
        field.length = static_cast<int>(row->integer(i + 5));
    }
    return result;
}

} // namespace vandrel
