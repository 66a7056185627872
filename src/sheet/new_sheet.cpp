// What a new sheet starts with: the last unit and doctor, the unit's next journal number, the next key, and
// the defaults of the fields. Writes nothing: a key is given again until a sheet is stored under it.
#include "foundation/institution_data.h"
#include "foundation/look_ups.h"
#include "platform/format.h"
#include "sheet/counters.h"
#include "sheet/sheet_fields.h"

#include <QStringList>

using namespace Qt::StringLiterals;

namespace vandrel {

namespace {

// Empty columns often hold one blank; on the form they are empty.
QString shown(const QString& stored) {
    return stored.trimmed().isEmpty() ? QString() : stored;
}

SheetFields defaults() {
    SheetFields fields;
    for (const char* zero : {"Jav", "Enaplo", "Tova", "EU_LAP", "VizDijOsszeg", "Termen", "Labor", "Rtg",
                             "Ctmr", "K_kep", "Fizio", "Utkltg", "Recept", "Gyogyseg", "Gyogyfurd"})
        for (const SheetFieldName& field : sheetFieldNames())
            if (std::string_view(field.name) == zero) field.of(fields) = u"0"_s;
    fields.Edatum = format::emptyDate;
    fields.BeutaloKelte = format::emptyDate;
    fields.KgyLe = format::emptyDate;
    fields.Szul_dat = format::emptyDate;
    fields.Terites = u"01"_s;
    fields.Baleset = u"00"_s;
    fields.Ell_tip = u"1"_s;
    fields.ElszNyil = u"10"_s;
    fields.Allampol_rov = u"HUN"_s;
    fields.MENNY = u"1"_s;
    fields.BeavJelleg = u"A"_s;
    return fields;
}

} // namespace

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

NewSheet makeNewSheet(Workstation& station) {
    NewSheet sheet;
    SheetFields& fields = sheet.fields;
    fields = defaults();
    const QDateTime now = station.clock.now();
    fields.F_datum = format::shortDate(now.date());
    fields.F_ido = format::longTime(now.time()).left(5);
    {
        Query last = station.files[DataFile::tetdata].query(
            "select SZAKREND, ORVKOD from BETEG order by AZONOSITO desc limit 1");
        if (last.next()) {
            fields.Szakrend = shown(last.text(0));
            fields.Orvkod = shown(last.text(1));
        }
    }
    const UnitDefaults unit = unitDefaults(station, fields.Szakrend);
    if (unit.found) fields.Orvkod = unit.Orvkod; // a Null empties it, whatever the last sheet had
    fields.Naplo = unit.Naplo;

    const QString number = nextRunningNumber(station);
    const QString label = workstationLabel(station);
    if (label.isEmpty()) station.dialogue.tell(u"Üres a gépazonosító!"_s);
    fields.Azonosito = label + number;

    sheet.institution = institutionLines(station);
    return sheet;
}

UnitDefaults unitDefaults(Workstation& station, const QString& unit) {
    UnitDefaults result;
    Query row = station.files[DataFile::tetdata].query(
        "select ORVKOD, NAPLO from [DEFAULT] where SZAKREND=?1 order by rowid limit 1", unit.trimmed());
    result.found = row.next();
    if (result.found) result.Orvkod = shown(row.text(0));
    result.Naplo = result.found ? QString::number(row.integer(1) + 1) : u"1"_s;
    return result;
}

std::array<UserField, 5> userFields(Workstation& station) {
    std::array<UserField, 5> result;
    Query row = station.files[DataFile::tetdata].query(
        "select Felh1_nev, Felh2_nev, Felh3_nev, Felh4_nev, Felh5_nev, Felh1_hossz, Felh2_hossz, "
        "Felh3_hossz, Felh4_hossz, Felh5_hossz from EGYEBPAR order by rowid limit 1");
    if (!row.next()) return result;
    for (int i = 0; i < 5; ++i) {
        UserField& field = result[static_cast<std::size_t>(i)];
        field.caption = shown(row.text(i));
        field.length = static_cast<int>(row.integer(i + 5));
    }
    return result;
}

} // namespace vandrel
