// The institution the program runs for, its login at the online check, and the workstation's label: loading,
// checking and storing. Knows no window.
#pragma once

#include "foundation/checks.h"
#include "foundation/workstation.h"

#include <QString>

#include <optional>

namespace vandrel {

using namespace Qt::StringLiterals;

// As the texts stand on the form; account and tax number are the masks' texts.
struct InstitutionFields {
    QString Int_nev, Gyogyi_kod, Orv_kod, Szakrend_kod, irsz, City, cim, Bankszamla, Adoig_szam, NBK_KOD;
    QString Login, Password; // from setup.ini, at most 39 characters
};

inline const QString emptyAccount = u"        -        -        "_s;
inline const QString emptyTaxNumber = u"        - -  "_s;
inline constexpr int loginLength = 39; // what a read buffer of 40 characters holds

// Null texts are empty. Account and tax number are the empty masks when they are empty, Null or "0".
InstitutionFields loadInstitution(Workstation& station);

// The checks in their order; every one tests the trimmed text. A failure without a title goes to the status
// line.
std::optional<CheckFailure> checkInstitutionFields(const InstitutionFields& fields);

// Edits the row or adds it. Plain texts are stored trimmed, an empty street as one blank. Faults of the data
// file pass through with nothing written.
void storeInstitution(Workstation& station, const InstitutionFields& fields);
// Writes Login and Password, both or none; faults of the file pass through.
void storeLogin(Workstation& station, const InstitutionFields& fields);

// Edits the row or adds it. False, with the message shown and nothing written, for an empty label and for one
// that is not three letters or digits. Keys that were given stay as they are.
bool storeWorkstationLabel(Workstation& station, const QString& label);

} // namespace vandrel
