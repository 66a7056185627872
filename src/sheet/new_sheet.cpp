// What a new sheet starts with: the last unit and doctor, the unit's next journal number, the next key, and
// the defaults of the fields. Writes nothing: a key is given again until a sheet is stored under it.
#include "sheet/new_sheet.h"

#include "foundation/look_ups.h"
#include "platform/format.h"
#include "sheet/counters.h"
#include "sheet/sheet_field_table.h"

using namespace Qt::StringLiterals;

namespace vandrel {

namespace {

// Empty columns often hold one blank; on the form they are empty.
QString shown(const QString& stored) {
    return stored.trimmed().isEmpty() ? QString() : stored;
}

SheetFields defaults() {
    SheetFields fields;
    for (const FieldRow<SheetKey>& row : sheetFieldTable()) {
        QString& value = valueOf(fields, row.key);
        value = row.field.whenNew.toString();
        if (row.field.shape == FieldShape::date) value = format::emptyDate;
    }
    return fields;
}

} // namespace

SheetFields makeNewSheet(Workstation& station) {
    repairCounters(station);
    SheetFields fields = defaults();
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
    if (sheetStored(station, fields.Azonosito))
        throw Fault(fault::dataConversion,
                    u"A következő azonosító (%1) már egy eltárolt adatlapé. Adjon meg új, három jegyű "
                    "gépazonosítót (Szerviz tevékenységek->Gépazonosító), és nyisson új adatlapot!"_s.arg(
                        fields.Azonosito));
    return fields;
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

} // namespace vandrel
