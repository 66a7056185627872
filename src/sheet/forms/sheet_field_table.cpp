// The table of the sheet's fields.
#include "sheet/forms/sheet_field_table.h"

namespace vandrel {

namespace {

using enum FieldPlace;
constexpr FieldShape text = FieldShape::text;
constexpr FieldShape date = FieldShape::date;
constexpr bool digits = true;
constexpr bool zero = true;

// The blanks before some colons belong to the labels as the clinics know them.
// Limits are the widths of the report's columns; texts that no report carries have none.
constexpr SheetField fields[] = {
    {"Szakrend", u"Szakrendelés/Ell.orvos:", main, 9, 9, text, false, false, PickMarker::Szakrend},
    {"Orvkod", u"Szakrendelés/Ell.orvos:", main, 5, 5, text, digits, false, PickMarker::Orvkod},
    {"Igenylo", u"Beut. m.h./orv./ind.:", main, 9, 9},
    {"BeutOrvos", u"Beut. m.h./orv./ind.:", main, 5, 5},
    {"BeutIndok", u"Beut. m.h./orv./ind.:", main, 9, 9},
    {"BeutaloKelte", u"Beutaló kelte:", main, 11, 11, date, false, false, PickMarker::none,
     FieldDate::referral},
    {"Naplo", u"Naplósorszám:", main, 8, 8, text, digits},
    {"Szem_szam", u"TAJ/Típus:", main, 9, 10, text, false, false, PickMarker::Paciens},
    {"Azon_tipus", u"TAJ/Típus:", main, 1, 2, text, digits, false, PickMarker::Azon_tipus},
    {"Neve", u"Név:"},
    {"Irszam", u"Lakhely:", main, 4, 5, text, digits},
    {"City", u"Lakhely:"},
    {"Cim", u"Cím:"},
    {"Allampol_rov", u"Állampolgárság:", main, 3, 4},
    {"Anyja_neve", u"Anyja neve:"},
    {"Leanykori_neve", u"Leánykori név:"},
    {"KgySzam", u"Közgyógy. ig. szám:"},
    {"KgyLe", u"Lejárata:", main, 11, 11, date, false, false, PickMarker::none, FieldDate::exemptionExpiry},
    {"F_datum", u"Ellátás ideje:", main, 11, 11, date, false, false, PickMarker::none, FieldDate::care},
    {"F_ido", u"Ellátás ideje:", main, 5, 5, FieldShape::time},
    {"Nem", u"Nem:", main, 1, 2, text, digits, false, PickMarker::Nem},
    {"Szul_dat", u"Születési dátum:", main, 11, 11, date, false, false, PickMarker::none, FieldDate::birth},
    {"Terites", u"Térítési kategória:", main, 2, 3, text, false, false, PickMarker::Terites},
    {"TerReszlDij", u"Térítési kategória/Részl. té. díj:", main, 6, 6, text, false, zero},
    {"Baleset", u"Baleset:", main, 2, 3, text, false, false, PickMarker::Baleset},
    {"Ell_tip", u"Ellátás típusa:", main, 1, 3, text, false, false, PickMarker::Ell_tip},
    {"Tova", u"Továbbküldés:", main, 1, 3, text, false, false, PickMarker::Tova},
    {"EU_LAP", u"EU adatlap:", main, 1, 3, text, false, false, PickMarker::EU_LAP},
    {"ElszNyil", u"Elszámolási nyilatkozat:", main, 2, 3, text, false, false, PickMarker::ElszNyil},
    {"VizitDij", u"Vizitdíj / fizetésének módja:", main, 2, 3, text, false, false, PickMarker::VizitDij},
    {"VizDijOsszeg", u"Vizitdíj / fizetésének módja:", main, 5, 5, text, false, zero},
    {"VizitdijFizMod", u"Vizitdíj / fizetésének módja:", main, 2, 3, text, false, false,
     PickMarker::VizitdijFizMod},
    {"Diag1", u"BNO:", main, 5, 6},
    {"Diag2", u"BNO:", main, 5, 6},
    {"Diag3", u"BNO:", main, 5, 6},
    {"Diag4", u"BNO:", main, 5, 6},
    {"Diag5", u"BNO:", main, 5, 6},
    {"BEAV", u"Kód:", main, 5, 7},
    // "1,5" can be typed, though the table then refuses it.
    {"MENNY", u"Mennyiség:", main, 3, 4, text, digits},
    {"BeavJelleg", u"Jelleg:", aside, 1, 2, text, false, false, PickMarker::BeavJelleg},
    {"Termen", u"Térítés vagy mentesség jogcíme:", aside, 2, 3},
    {"Jav", u"Javítás                :", aside, 1, 2, text, digits},
    {"Er_azon", u"Er. szakrend.", aside, 9, 9},
    {"Edatum", u"Er. dátum          :", aside, 11, 11, date, false, false, PickMarker::none,
     FieldDate::unchecked},
    {"Enaplo", u"Er. napló            :", aside, 8, 8, text, false, zero},
    {"Labor", u"Laborvizsgálat kérés:", other, 1, 3, text, digits, false, PickMarker::Labor},
    {"Rtg", u"Képalkotó vizsgálat kérés:", other, 1, 3, text, digits, false, PickMarker::Rtg},
    {"Ctmr", u"CT, MR, PET vizsgálat kérés:", other, 1, 3, text, digits, false, PickMarker::Ctmr},
    {"K_kep", u"Keresőképesség elbírálása:", other, 1, 3, text, digits, false, PickMarker::K_kep},
    {"Fizio", u"Fiziotherápiás vizsgálat kérés:", other, 1, 3, text, digits, false, PickMarker::Fizio},
    {"Utkltg", u"Útiköltség-térítés igény:", other, 1, 3, text, digits, false, PickMarker::Utkltg},
    {"Recept", u"Felírt vények száma:", other, 2, 3, text, digits, zero},
    {"Gyogyseg", u"Felírt gyógy. segédeszköz-vények száma:", other, 2, 3, text, digits, zero},
    {"Gyogyfurd", u"Felírt gyógyfürdő-vények száma:", other, 2, 3, text, digits, zero},
    // Captions and limits come from the clinic's parameters.
    {"Felh1", u"", other},
    {"Felh2", u"", other},
    {"Felh3", u"", other},
    {"Felh4", u"", other},
    {"Felh5", u"", other},
};

} // namespace

std::span<const SheetField> sheetFieldTable() {
    return fields;
}

const SheetField* sheetField(QStringView name) {
    for (const SheetField& field : fields)
        if (name == QLatin1StringView(field.name)) return &field;
    return nullptr;
}

} // namespace vandrel
