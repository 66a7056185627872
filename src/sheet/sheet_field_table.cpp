// The table of the sheet's fields. The compiler holds it, the keys and SheetFields together.
#include "sheet/sheet_field_table.h"

namespace vandrel {

namespace {

using enum SheetKey;

// The blanks before some colons belong to the labels as the clinics know them.
// Limits are the widths of the report's columns; texts that no report carries have none.
constexpr FieldRow<SheetKey> fields[] = {
    {Azonosito, {.name = "Azonosito", .place = FieldPlace::none}},
    {Szakrend,
     {.name = "Szakrend",
      .label = u"Szakrendelés/Ell.orvos:",
      .limit = 9,
      .shown = 9,
      .list = PickMarker::Szakrend}},
    {Orvkod,
     {.name = "Orvkod",
      .label = u"Szakrendelés/Ell.orvos:",
      .limit = 5,
      .shown = 5,
      .numeric = true,
      .list = PickMarker::Orvkod}},
    {Igenylo, {.name = "Igenylo", .label = u"Beut. m.h./orv./ind.:", .limit = 9, .shown = 9}},
    {BeutOrvos, {.name = "BeutOrvos", .label = u"Beut. m.h./orv./ind.:", .limit = 5, .shown = 5}},
    {BeutIndok, {.name = "BeutIndok", .label = u"Beut. m.h./orv./ind.:", .limit = 9, .shown = 9}},
    {BeutaloKelte,
     {.name = "BeutaloKelte",
      .label = u"Beutaló kelte:",
      .shape = FieldShape::date,
      .limit = 11,
      .shown = 11,
      .dateCheck = DateCheck::referral}},
    {Naplo, {.name = "Naplo", .label = u"Naplósorszám:", .limit = 8, .shown = 8, .numeric = true}},
    {Szem_szam,
     {.name = "Szem_szam", .label = u"TAJ/Típus:", .limit = 9, .shown = 10, .list = PickMarker::Paciens}},
    {Azon_tipus,
     {.name = "Azon_tipus",
      .label = u"TAJ/Típus:",
      .limit = 1,
      .shown = 2,
      .numeric = true,
      .list = PickMarker::Azon_tipus}},
    {Neve, {.name = "Neve", .label = u"Név:"}},
    {Irszam, {.name = "Irszam", .label = u"Lakhely:", .limit = 4, .shown = 5, .numeric = true}},
    {City, {.name = "City", .label = u"Lakhely:"}},
    {Cim, {.name = "Cim", .label = u"Cím:"}},
    {Allampol_rov,
     {.name = "Allampol_rov", .label = u"Állampolgárság:", .limit = 3, .shown = 4, .whenNew = u"HUN"}},
    {Anyja_neve, {.name = "Anyja_neve", .label = u"Anyja neve:"}},
    {Leanykori_neve, {.name = "Leanykori_neve", .label = u"Leánykori név:"}},
    {KgySzam, {.name = "KgySzam", .label = u"Közgyógy. ig. szám:"}},
    {KgyLe,
     {.name = "KgyLe",
      .label = u"Lejárata:",
      .shape = FieldShape::date,
      .limit = 11,
      .shown = 11,
      .dateCheck = DateCheck::exemptionExpiry}},
    {F_datum,
     {.name = "F_datum",
      .label = u"Ellátás ideje:",
      .shape = FieldShape::date,
      .limit = 11,
      .shown = 11,
      .dateCheck = DateCheck::care}},
    {F_ido, {.name = "F_ido", .label = u"Ellátás ideje:", .shape = FieldShape::time, .limit = 5, .shown = 5}},
    {Nem,
     {.name = "Nem", .label = u"Nem:", .limit = 1, .shown = 2, .numeric = true, .list = PickMarker::Nem}},
    {Szul_dat,
     {.name = "Szul_dat",
      .label = u"Születési dátum:",
      .shape = FieldShape::date,
      .limit = 11,
      .shown = 11,
      .dateCheck = DateCheck::birth}},
    {Terites,
     {.name = "Terites",
      .label = u"Térítési kategória:",
      .limit = 2,
      .shown = 3,
      .whenNew = u"01",
      .list = PickMarker::Terites}},
    {TerReszlDij,
     {.name = "TerReszlDij",
      .label = u"Térítési kategória/Részl. té. díj:",
      .limit = 6,
      .shown = 6,
      .zeroWhenEmpty = true}},
    {Baleset,
     {.name = "Baleset",
      .label = u"Baleset:",
      .limit = 2,
      .shown = 3,
      .whenNew = u"00",
      .list = PickMarker::Baleset}},
    {Ell_tip,
     {.name = "Ell_tip",
      .label = u"Ellátás típusa:",
      .limit = 1,
      .shown = 3,
      .whenNew = u"1",
      .list = PickMarker::Ell_tip}},
    {Tova,
     {.name = "Tova",
      .label = u"Továbbküldés:",
      .limit = 1,
      .shown = 3,
      .whenNew = u"0",
      .list = PickMarker::Tova}},
    {EU_LAP,
     {.name = "EU_LAP",
      .label = u"EU adatlap:",
      .limit = 1,
      .shown = 3,
      .whenNew = u"0",
      .list = PickMarker::EU_LAP}},
    {ElszNyil,
     {.name = "ElszNyil",
      .label = u"Elszámolási nyilatkozat:",
      .limit = 2,
      .shown = 3,
      .whenNew = u"10",
      .list = PickMarker::ElszNyil}},
    {VizitDij,
     {.name = "VizitDij",
      .label = u"Vizitdíj / fizetésének módja:",
      .limit = 2,
      .shown = 3,
      .list = PickMarker::VizitDij}},
    {VizDijOsszeg,
     {.name = "VizDijOsszeg",
      .label = u"Vizitdíj / fizetésének módja:",
      .limit = 5,
      .shown = 5,
      .zeroWhenEmpty = true,
      .whenNew = u"0"}},
    {VizitdijFizMod,
     {.name = "VizitdijFizMod",
      .label = u"Vizitdíj / fizetésének módja:",
      .limit = 2,
      .shown = 3,
      .list = PickMarker::VizitdijFizMod}},
    {Diag1, {.name = "Diag1", .label = u"BNO:", .limit = 5, .shown = 6}},
    {Diag2, {.name = "Diag2", .label = u"BNO:", .limit = 5, .shown = 6}},
    {Diag3, {.name = "Diag3", .label = u"BNO:", .limit = 5, .shown = 6}},
    {Diag4, {.name = "Diag4", .label = u"BNO:", .limit = 5, .shown = 6}},
    {Diag5, {.name = "Diag5", .label = u"BNO:", .limit = 5, .shown = 6}},
    {BEAV, {.name = "BEAV", .label = u"Kód:", .limit = 5, .shown = 7}},
    // "1,5" can be typed, though the table then refuses it.
    {MENNY,
     {.name = "MENNY", .label = u"Mennyiség:", .limit = 3, .shown = 4, .numeric = true, .whenNew = u"1"}},
    {BeavJelleg,
     {.name = "BeavJelleg",
      .label = u"Jelleg:",
      .limit = 1,
      .shown = 2,
      .whenNew = u"A",
      .list = PickMarker::BeavJelleg,
      .place = FieldPlace::aside}},
    {Termen,
     {.name = "Termen",
      .label = u"Térítés vagy mentesség jogcíme:",
      .limit = 2,
      .shown = 3,
      .whenNew = u"0",
      .place = FieldPlace::aside}},
    {Jav,
     {.name = "Jav",
      .label = u"Javítás                :",
      .limit = 1,
      .shown = 2,
      .numeric = true,
      .whenNew = u"0",
      .place = FieldPlace::aside}},
    {Er_azon,
     {.name = "Er_azon", .label = u"Er. szakrend.", .limit = 9, .shown = 9, .place = FieldPlace::aside}},
    {Edatum,
     {.name = "Edatum",
      .label = u"Er. dátum          :",
      .shape = FieldShape::date,
      .limit = 11,
      .shown = 11,
      .place = FieldPlace::aside}},
    {Enaplo,
     {.name = "Enaplo",
      .label = u"Er. napló            :",
      .limit = 8,
      .shown = 8,
      .zeroWhenEmpty = true,
      .whenNew = u"0",
      .place = FieldPlace::aside}},
    {Labor,
     {.name = "Labor",
      .label = u"Laborvizsgálat kérés:",
      .limit = 1,
      .shown = 3,
      .numeric = true,
      .whenNew = u"0",
      .list = PickMarker::Labor}},
    {Rtg,
     {.name = "Rtg",
      .label = u"Képalkotó vizsgálat kérés:",
      .limit = 1,
      .shown = 3,
      .numeric = true,
      .whenNew = u"0",
      .list = PickMarker::Rtg}},
    {Ctmr,
     {.name = "Ctmr",
      .label = u"CT, MR, PET vizsgálat kérés:",
      .limit = 1,
      .shown = 3,
      .numeric = true,
      .whenNew = u"0",
      .list = PickMarker::Ctmr}},
    {K_kep,
     {.name = "K_kep",
      .label = u"Keresőképesség elbírálása:",
      .limit = 1,
      .shown = 3,
      .numeric = true,
      .whenNew = u"0",
      .list = PickMarker::K_kep}},
    {Fizio,
     {.name = "Fizio",
      .label = u"Fiziotherápiás vizsgálat kérés:",
      .limit = 1,
      .shown = 3,
      .numeric = true,
      .whenNew = u"0",
      .list = PickMarker::Fizio}},
    {Utkltg,
     {.name = "Utkltg",
      .label = u"Útiköltség-térítés igény:",
      .limit = 1,
      .shown = 3,
      .numeric = true,
      .whenNew = u"0",
      .list = PickMarker::Utkltg}},
    {Recept,
     {.name = "Recept",
      .label = u"Felírt vények száma:",
      .limit = 2,
      .shown = 3,
      .numeric = true,
      .zeroWhenEmpty = true,
      .whenNew = u"0"}},
    {Gyogyseg,
     {.name = "Gyogyseg",
      .label = u"Felírt gyógy. segédeszköz-vények száma:",
      .limit = 2,
      .shown = 3,
      .numeric = true,
      .zeroWhenEmpty = true,
      .whenNew = u"0"}},
    {Gyogyfurd,
     {.name = "Gyogyfurd",
      .label = u"Felírt gyógyfürdő-vények száma:",
      .limit = 2,
      .shown = 3,
      .numeric = true,
      .zeroWhenEmpty = true,
      .whenNew = u"0"}},
    // Captions and limits come from the clinic's parameters.
    {Felh1, {.name = "Felh1"}},
    {Felh2, {.name = "Felh2"}},
    {Felh3, {.name = "Felh3"}},
    {Felh4, {.name = "Felh4"}},
    {Felh5, {.name = "Felh5"}},
    // Not a single line: a frame of its own.
    {NOTE, {.name = "NOTE", .place = FieldPlace::none}},
};
static_assert(everyKeyInOrder(fields, SheetKey::NOTE) && noFieldTwice(fields));
// A text added to SheetFields needs its row here.
static_assert(sizeof(SheetFields) == sizeof(QString) * std::size(fields) + alignof(QString));

} // namespace

FieldTable<SheetKey> sheetFieldTable() {
    return fields;
}

QString& valueOf(SheetFields& sheet, SheetKey key) {
    switch (key) {
    case Azonosito:
        return sheet.Azonosito;
    case Szakrend:
        return sheet.Szakrend;
    case Orvkod:
        return sheet.Orvkod;
    case Igenylo:
        return sheet.Igenylo;
    case BeutOrvos:
        return sheet.BeutOrvos;
    case BeutIndok:
        return sheet.BeutIndok;
    case BeutaloKelte:
        return sheet.BeutaloKelte;
    case Naplo:
        return sheet.Naplo;
    case Szem_szam:
        return sheet.Szem_szam;
    case Azon_tipus:
        return sheet.Azon_tipus;
    case Neve:
        return sheet.Neve;
    case Irszam:
        return sheet.Irszam;
    case City:
        return sheet.City;
    case Cim:
        return sheet.Cim;
    case Allampol_rov:
        return sheet.Allampol_rov;
    case Anyja_neve:
        return sheet.Anyja_neve;
    case Leanykori_neve:
        return sheet.Leanykori_neve;
    case KgySzam:
        return sheet.KgySzam;
    case KgyLe:
        return sheet.KgyLe;
    case F_datum:
        return sheet.F_datum;
    case F_ido:
        return sheet.F_ido;
    case Nem:
        return sheet.Nem;
    case Szul_dat:
        return sheet.Szul_dat;
    case Terites:
        return sheet.Terites;
    case TerReszlDij:
        return sheet.TerReszlDij;
    case Baleset:
        return sheet.Baleset;
    case Ell_tip:
        return sheet.Ell_tip;
    case Tova:
        return sheet.Tova;
    case EU_LAP:
        return sheet.EU_LAP;
    case ElszNyil:
        return sheet.ElszNyil;
    case VizitDij:
        return sheet.VizitDij;
    case VizDijOsszeg:
        return sheet.VizDijOsszeg;
    case VizitdijFizMod:
        return sheet.VizitdijFizMod;
    case Diag1:
        return sheet.Diag[0];
    case Diag2:
        return sheet.Diag[1];
    case Diag3:
        return sheet.Diag[2];
    case Diag4:
        return sheet.Diag[3];
    case Diag5:
        return sheet.Diag[4];
    case BEAV:
        return sheet.BEAV;
    case MENNY:
        return sheet.MENNY;
    case BeavJelleg:
        return sheet.BeavJelleg;
    case Termen:
        return sheet.Termen;
    case Jav:
        return sheet.Jav;
    case Er_azon:
        return sheet.Er_azon;
    case Edatum:
        return sheet.Edatum;
    case Enaplo:
        return sheet.Enaplo;
    case Labor:
        return sheet.Labor;
    case Rtg:
        return sheet.Rtg;
    case Ctmr:
        return sheet.Ctmr;
    case K_kep:
        return sheet.K_kep;
    case Fizio:
        return sheet.Fizio;
    case Utkltg:
        return sheet.Utkltg;
    case Recept:
        return sheet.Recept;
    case Gyogyseg:
        return sheet.Gyogyseg;
    case Gyogyfurd:
        return sheet.Gyogyfurd;
    case Felh1:
        return sheet.Felh[0];
    case Felh2:
        return sheet.Felh[1];
    case Felh3:
        return sheet.Felh[2];
    case Felh4:
        return sheet.Felh[3];
    case Felh5:
        return sheet.Felh[4];
    case NOTE:
        return sheet.NOTE;
    }
    Q_UNREACHABLE();
}

} // namespace vandrel
