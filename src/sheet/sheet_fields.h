// One outpatient sheet as its texts are on the form.
#pragma once

#include <QString>

#include <array>

namespace vandrel {

// Every text is what the field shows; dates and times are the masks' texts ("    .  .  ." when empty).
struct SheetFields {         // each text has its row in sheet_field_table.cpp
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
};

} // namespace vandrel
