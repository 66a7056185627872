// What the clinic's settings put on the sheet: the institution's lines and the captions of the user fields.
#pragma once

#include "foundation/workstation.h"

#include <QString>

#include <array>

namespace vandrel {

// The institution as the sheet's head shows it; both empty when nothing is known of it.
struct InstitutionLines {
    QString name;
    QString address; // Irsz - City, cim; each part only when present
};
InstitutionLines institutionLines(Workstation& station);

// User fields from EGYEBPAR: a field whose caption is empty is not in use.
struct UserField {
    QString caption;
    int length = 0;
    bool inUse() const { return !caption.isEmpty(); }
};
std::array<UserField, 5> userFields(Workstation& station);

} // namespace vandrel
