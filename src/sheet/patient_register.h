// The patient register as the sheet uses it: found by the first digits of a TAJ, written at the store.
#pragma once

#include "sheet/sheet_fields.h"

#include <optional>

namespace vandrel {

struct Patient {
    qint64 id = 0;
    QString Taj, Neve, Irszam, Cim, Allampol_rov, Anyja_neve, Leanykori_neve, KgySzam, KgyLe, Azon_tipus, Nem,
        Szul_dat;
};

// First patient in the table's order whose TAJ begins with the text; nullopt when none does or the text is
// empty. KgyLe is the empty mask when Null or "____.__.__."; type and sex are first characters; Null texts
// are empty.
std::optional<Patient> findPatientByPrefix(Workstation& station, const QString& typed);

// The patient with exactly this TAJ (trimmed): its ID, or nullopt.
std::optional<qint64> findPatientId(Workstation& station, const QString& taj);

// Writes the register for a store, inside the caller's transaction: a new row under the next number, or each
// changed field of the found row as an update of its own. Gives the patient id.
qint64 addPatient(Workstation& station, const SheetFields& fields);
void updatePatient(Workstation& station, qint64 id, const SheetFields& fields);

} // namespace vandrel
