// How a new sheet gets its identity and defaults.
#pragma once

#include "foundation/workstation.h"
#include "sheet/sheet_fields.h"

namespace vandrel {

// Makes a new sheet: last unit and doctor, journal number and key. Nothing is written.
// Deliberate: the key is not reserved; it is given again until a sheet is stored under it.
// A key under which a sheet is stored is never given: the counters are mended first. Shows "Üres a
// gépazonosító!" when the workstation has no label and goes on without a prefix. Faults:
// overflow when the running number is used up; dataConversion when the next key is that of a stored sheet
// (keys without a label of three characters come round again); those of the data files.
SheetFields makeNewSheet(Workstation& station);

// Doctor and journal number of a unit from DEFAULT: found false when the unit has no row.
struct UnitDefaults {
    bool found = false;
    QString Orvkod; // empty when Null
    QString Naplo;  // the last number + 1; "1" when not found
};
UnitDefaults unitDefaults(Workstation& station, const QString& unit);

} // namespace vandrel
