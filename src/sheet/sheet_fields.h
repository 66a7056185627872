// One outpatient sheet as its texts stand on the form, and how a new one gets its identity and defaults.
#pragma once

#include "foundation/workstation.h"

#include <QString>

#include <array>
#include <span>

namespace vandrel {

// Every text is what the field shows; dates and times are the masks' texts ("    .  .  ." when empty).
struct SheetFields {
    bool correction = false; // mode text "Javítás"
    QString Azonosito;
    // sheet
    QString Jav, Er_azon, Edatum, Enaplo;
    QString Szakrend, Orvkod, Igenylo, BeutOrvos, BeutIndok, BeutaloKelte, Naplo;
    QString F_datum, F_ido; // F_ido hh:mm
    QString Terites, TerReszlDij, Baleset, Ell_tip, Tova, EU_LAP, ElszNyil, VizitDij, VizDijOsszeg,
        VizitdijFizMod, Termen;
    std::array<QString, 5> Diag;
    QString Labor, Rtg, Ctmr, K_kep, Fizio, Utkltg, Recept, Gyogyseg, Gyogyfurd;
    std::array<QString, 5> Felh;
    QString NOTE;
    // patient; Szem_szam is the TAJ
    QString Szem_szam, Azon_tipus, Neve, Irszam, City, Cim, Allampol_rov, Anyja_neve, Leanykori_neve, KgySzam,
        KgyLe, Nem, Szul_dat;
    // procedure entry
    QString BEAV, MENNY, BeavJelleg;
    // EU sheet fields that the store asks for
    QString BIZT_ORSZ, CS_NEV, KER_NEV, BIZT_SZAM;
};

// A text field's name (its column's name, also the form's objectName) and its place in SheetFields.
// Diag1..Diag5 and Felh1..Felh5 are among them.
struct SheetFieldName {
    const char* name;
    QString& (*of)(SheetFields&);
};
std::span<const SheetFieldName> sheetFieldNames();

// The institution as the sheet's head shows it; both empty when nothing is known of it.
struct InstitutionLines {
    QString name;
    QString address; // Irsz - City, cim; each part only when present
};
InstitutionLines institutionLines(Workstation& station);

// What Uj puts on the form: the fields, the header lines, and whether the label is missing.
struct NewSheet {
    SheetFields fields;
    InstitutionLines institution;
};

// Makes a new sheet: last unit and doctor, journal number and key. Nothing is written: the key is not
// reserved, and that is wanted. Shows "Üres a gépazonosító!" when the workstation has no label and goes on
// without a prefix. Faults: overflow when the running number is used up; those of the data files.
NewSheet makeNewSheet(Workstation& station);

// Doctor and journal number of a unit from DEFAULT: found false when the unit has no row.
struct UnitDefaults {
    bool found = false;
    QString Orvkod; // empty when Null
    QString Naplo;  // the last number + 1; "1" when not found
};
UnitDefaults unitDefaults(Workstation& station, const QString& unit);

// User fields from EGYEBPAR: a field whose caption is empty is not in use.
struct UserField {
    QString caption;
    int length = 0;
    bool inUse() const { return !caption.isEmpty(); }
};
std::array<UserField, 5> userFields(Workstation& station);

// A store that was broken off between writing the sheet and moving the counters (a power cut) leaves End_azon
// behind its own last sheet: called once at start, moves the counters behind it so that no key is given
// twice.
void repairCounters(Workstation& station);

} // namespace vandrel
