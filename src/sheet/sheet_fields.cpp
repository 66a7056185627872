// The text fields of a sheet by their names.
#include "sheet/sheet_fields.h"

namespace vandrel {

#define VANDREL_FIELD(member)                                                                                \
    {                                                                                                        \
#member, [](SheetFields & fields) -> QString& { return fields.member; }                              \
    }
#define VANDREL_SLOT(name, member)                                                                           \
    {                                                                                                        \
        name, [](SheetFields& fields) -> QString& { return fields.member; }                                  \
    }

std::span<const SheetFieldName> sheetFieldNames() {
    static constexpr SheetFieldName names[] = {
        VANDREL_FIELD(Azonosito),
        VANDREL_FIELD(Jav),
        VANDREL_FIELD(Er_azon),
        VANDREL_FIELD(Edatum),
        VANDREL_FIELD(Enaplo),
        VANDREL_FIELD(Szakrend),
        VANDREL_FIELD(Orvkod),
        VANDREL_FIELD(Igenylo),
        VANDREL_FIELD(BeutOrvos),
        VANDREL_FIELD(BeutIndok),
        VANDREL_FIELD(BeutaloKelte),
        VANDREL_FIELD(Naplo),
        VANDREL_FIELD(Szem_szam),
        VANDREL_FIELD(Azon_tipus),
        VANDREL_FIELD(Neve),
        VANDREL_FIELD(Irszam),
        VANDREL_FIELD(City),
        VANDREL_FIELD(Cim),
        VANDREL_FIELD(Allampol_rov),
        VANDREL_FIELD(Anyja_neve),
        VANDREL_FIELD(Leanykori_neve),
        VANDREL_FIELD(KgySzam),
        VANDREL_FIELD(KgyLe),
        VANDREL_FIELD(F_datum),
        VANDREL_FIELD(F_ido),
        VANDREL_FIELD(Nem),
        VANDREL_FIELD(Szul_dat),
        VANDREL_FIELD(Terites),
        VANDREL_FIELD(TerReszlDij),
        VANDREL_FIELD(Baleset),
        VANDREL_FIELD(Ell_tip),
        VANDREL_FIELD(Tova),
        VANDREL_FIELD(EU_LAP),
        VANDREL_FIELD(ElszNyil),
        VANDREL_FIELD(VizitDij),
        VANDREL_FIELD(VizDijOsszeg),
        VANDREL_FIELD(VizitdijFizMod),
        VANDREL_FIELD(Termen),
        VANDREL_SLOT("Diag1", Diag[0]),
        VANDREL_SLOT("Diag2", Diag[1]),
        VANDREL_SLOT("Diag3", Diag[2]),
        VANDREL_SLOT("Diag4", Diag[3]),
        VANDREL_SLOT("Diag5", Diag[4]),
        VANDREL_FIELD(Labor),
        VANDREL_FIELD(Rtg),
        VANDREL_FIELD(Ctmr),
        VANDREL_FIELD(K_kep),
        VANDREL_FIELD(Fizio),
        VANDREL_FIELD(Utkltg),
        VANDREL_FIELD(Recept),
        VANDREL_FIELD(Gyogyseg),
        VANDREL_FIELD(Gyogyfurd),
        VANDREL_SLOT("Felh1", Felh[0]),
        VANDREL_SLOT("Felh2", Felh[1]),
        VANDREL_SLOT("Felh3", Felh[2]),
        VANDREL_SLOT("Felh4", Felh[3]),
        VANDREL_SLOT("Felh5", Felh[4]),
        VANDREL_FIELD(NOTE),
        VANDREL_FIELD(BEAV),
        VANDREL_FIELD(MENNY),
        VANDREL_FIELD(BeavJelleg),
    };
    return names;
}

#undef VANDREL_FIELD
#undef VANDREL_SLOT

} // namespace vandrel
