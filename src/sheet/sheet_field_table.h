// The fields of a sheet, each in one row: name, label, shape, limit, list, what a new sheet starts with. The
// screen, a new sheet and all that walks over a sheet's texts read this table. It knows no widget.
#pragma once

#include "foundation/field_table.h"
#include "sheet/sheet_fields.h"

namespace vandrel {

// In the order of entry: what is in the chain goes from row to row by Enter.
enum class SheetKey {
    Azonosito,
    Szakrend,
    Orvkod,
    Igenylo,
    BeutOrvos,
    BeutIndok,
    BeutaloKelte,
    Naplo,
    Szem_szam,
    Azon_tipus,
    Neve,
    Irszam,
    City,
    Cim,
    Allampol_rov,
    Anyja_neve,
    Leanykori_neve,
    KgySzam,
    KgyLe,
    F_datum,
    F_ido,
    Nem,
    Szul_dat,
    Terites,
    TerReszlDij,
    Baleset,
    Ell_tip,
    Tova,
    EU_LAP,
    ElszNyil,
    VizitDij,
    VizDijOsszeg,
    VizitdijFizMod,
    Diag1,
    Diag2,
    Diag3,
    Diag4,
    Diag5,
    BEAV,
    MENNY,
    BeavJelleg,
    Termen,
    Jav,
    Er_azon,
    Edatum,
    Enaplo,
    Labor,
    Rtg,
    Ctmr,
    K_kep,
    Fizio,
    Utkltg,
    Recept,
    Gyogyseg,
    Gyogyfurd,
    Felh1,
    Felh2,
    Felh3,
    Felh4,
    Felh5,
    NOTE
};

inline constexpr SheetKey diagnosisKeys[] = {SheetKey::Diag1, SheetKey::Diag2, SheetKey::Diag3,
                                             SheetKey::Diag4, SheetKey::Diag5};
inline constexpr SheetKey userFieldKeys[] = {SheetKey::Felh1, SheetKey::Felh2, SheetKey::Felh3,
                                             SheetKey::Felh4, SheetKey::Felh5};

FieldTable<SheetKey> sheetFieldTable();

// The text of a field in a sheet.
QString& valueOf(SheetFields& fields, SheetKey key);

} // namespace vandrel
