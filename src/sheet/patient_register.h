// The patient register as the sheet uses it: found by the first digits of a TAJ, written at the store.
#pragma once

#include "foundation/workstation.h"
#include "sheet/sheet_fields.h"

#include <optional>

namespace vandrel {

struct Patient {
    qint64 id = 0;
    QString Taj, Neve, Irszam, City, Cim, Allampol_rov, Anyja_neve, Leanykori_neve, KgySzam, KgyLe,
        Azon_tipus, Nem, Szul_dat;
};

// First patient in the table's order whose TAJ begins with the text; nullopt when none does or the text is
// blank. KgyLe is the empty mask when Null, blank or "____.__.__.", the birth date when Null or blank; type
// and sex are first characters; Null texts are empty.
std::optional<Patient> findPatientByPrefix(Workstation& station, const QString& typed);

// True when anybody is in the register: an empty one is not searched, so nothing typed is cleared for it.
bool registerHasPatients(Workstation& station);

// ID of the first patient with exactly this TAJ (trimmed; 0 for a Null ID), or nullopt.
std::optional<qint64> findPatientId(Workstation& station, const QString& taj);

// What a store writes, inside the caller's transaction. The TAJ goes in without surrounding blanks, as it is
// searched.
// A new row under the next number; gives that number. Fault noCurrentRecord when Utolsok is empty.
qint64 addPatient(Workstation& station, const SheetFields& fields);
// Each field of the TAJ's row that is Null or differs (blanks around it apart) is an update of its own.
void updatePatient(Workstation& station, const SheetFields& fields);

} // namespace vandrel
