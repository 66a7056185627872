// The checks that run when a field of the sheet is left. What a field accepts and what its pick-list offers
// differ on purpose in places, so the two are tables of their own.
#pragma once

#include "foundation/checks.h"
#include "foundation/workstation.h"

#include <QString>

#include <optional>

namespace vandrel {

// What a check says about a field that was left.
struct FieldVerdict {
    QString value; // what the field holds from now on (a default, a correction or what it held)
    std::optional<CheckFailure> failure; // names the field itself, which gets the focus back
};

// Group A runs only while Alt_eng is on, group B only while it is off; name is the field's name
// ("Terites", "Baleset", "Diag1", "BEAV" for the procedure code, "BeavJelleg" ...). A field without a check
// in the running group is good. newSheet is false in mode "Javítás". Codes compare without regard to case; a
// code that is found takes the spelling of its list or dictionary, since the reports carry it as it stands.
// Faults: those of the dictionaries' data files.
FieldVerdict checkField(Workstation& station, const QString& name, const QString& value, bool altEng,
                        bool newSheet);

// Birth date and date of referral: a date of the calendar from 1860 on. Date of care and exemption expiry: a
// date of the calendar. The empty mask passes for the referral and the expiry only. The failure names no
// field: the focus goes back to the one that was left.
enum class DateField { birth, referral, care, exemptionExpiry };
std::optional<CheckFailure> checkDateField(DateField field, const QString& value);

} // namespace vandrel
