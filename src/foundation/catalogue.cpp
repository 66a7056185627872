// The tables of every data file. The order of the columns is part of the data: merges copy by position.
#include "foundation/catalogue.h"

#include <algorithm>
#include <array>

namespace vandrel::catalogue {

namespace {

// Flags are whole: 1 true, 0 false; older data have -1 for true. Dates and times are texts.

template<std::size_t N, std::size_t M>
constexpr std::array<Column, N + M> joined(const Column (&first)[N], const Column (&second)[M]) {
    std::array<Column, N + M> all{};
    std::copy(std::begin(second), std::end(second),
              std::copy(std::begin(first), std::end(first), all.begin()));
    return all;
}

// clang-format off
constexpr Column paciensek[] = {
    {"ID", Type::whole}, {"TAJ", Type::code}, {"Azon_Tipus"}, {"Nem"}, {"Szul_Dat"}, {"Neve"},
    {"Irszam"}, {"City"}, {"Cim"}, {"Anyja_neve"}, {"Leanykori_neve"}, {"Allampol_rov", Type::code},
    {"KgySzam"}, {"KgyLe"}};

constexpr Column beteg[] = {
    {"SZEM_SZAM", Type::code}, {"PaciensId", Type::whole}, {"SZAKREND", Type::code},
    {"IGENYLO", Type::code}, {"ORVKOD", Type::code}, {"NAPLO"}, {"TERITES", Type::code}, {"DIAG1", Type::code},
    {"DIAG2", Type::code}, {"DIAG3", Type::code}, {"DIAG4", Type::code}, {"DIAG5", Type::code},
    {"F_DATUM"}, {"F_IDO"}, {"AZONOSITO", Type::code}, {"FLOPPY", Type::wholeNumber}, {"TIPUS"}, {"ELL_TIP"},
    {"BALESET1"}, {"BALESET2"}, {"TOVA"}, {"LABOR"}, {"RTG"}, {"CTMR"}, {"FIZIO"}, {"K_KEP"},
    {"UTKLTG"}, {"RECEPT"}, {"GYOGYSEG"}, {"GYOGYFURD"}, {"FELH1"}, {"FELH2"}, {"FELH3"}, {"FELH4"},
    {"FELH5"}, {"JAV"}, {"ER_AZON", Type::code}, {"ENAPLO"}, {"EDATUM"}, {"FLOPPY2", Type::wholeNumber},
    {"T_DATUM"}, {"T_IDO"}, {"BEUT_BNO", Type::code}, {"NOTE"}, {"EU_LAP"}, {"BeutOrvos"},
    {"BeutIndok"}, {"BeutaloKelte"}, {"TerReszlDij", Type::number}, {"ElszNyil"}, {"Termen"},
    {"VizitDij"}, {"VizitdijFizMod"}, {"VizDijOsszeg", Type::integer}};

constexpr Column euszolg[] = {
    {"Azonosito", Type::code}, {"BEAV", Type::code}, {"MENNY", Type::wholeNumber}, {"BeavJelleg", Type::code}};

constexpr Column euszolgScratch[] = {
    {"Azonosito", Type::code}, {"BEAV", Type::code}, {"MENNY", Type::wholeNumber}, {"IGENYLO", Type::code},
    {"SZAKREND", Type::code}, {"BeavJelleg", Type::code}};

constexpr Column euAdatl[] = {
    {"EU_AZON", Type::code}, {"BIZT_ORSZ"}, {"NYOMT_JELL"}, {"CS_NEV"}, {"KER_NEV"}, {"SZUL_DAT"},
    {"BIZT_SZAM"}, {"BIZT_AZON"}, {"EKARTYA"}, {"EKARTYA_LE"}, {"NYOMT_TOL"}, {"NYOMT_IG"},
    {"BIZT_NEV"}, {"BIZT_VAROS"}, {"BIZT_CIM"}, {"MUNK_AZON"}, {"ELLAT_AZON"}};

constexpr Column tappenz[] = {
    {"TAZON", Type::code}, {"TTAJSZAM", Type::code}, {"TNEM"}, {"TSZULDAT"}, {"TBETNEV"}, {"TIRSZAM"},
    {"TCITY"}, {"TUTCA"}, {"TSZAKREND", Type::code}, {"TDIAG", Type::code}, {"TNAPLOSZAM", Type::whole},
    {"ELOZONAPLO", Type::whole}, {"GYERTAJ", Type::code}, {"FELVMOD", Type::code}, {"TAPJELL"},
    {"MEGSZMOD", Type::code}, {"ELETKOR", Type::integer}, {"KKALLKEZD"}, {"KKALLVEG"},
    {"KEZDORVKOD", Type::code}, {"ZAROORVKOD", Type::code}, {"THET"}, {"JAV"}, {"THETVEG"}, {"TRL"}, {"ATV"}};

constexpr Column receptek[] = {
    {"Venyazonosito"}, {"AAzonosito", Type::code}, {"BetegAzonosito", Type::code}, {"Betegadatok"},
    {"BNO", Type::code}, {"Jogcim"}, {"Pecsetszam"}, {"Kozgyogyigszam"}, {"ENY"}, {"EU"},
    {"KiallDatum"}, {"TTT"}, {"RGyNev"}, {"RGyMennyiseg"}, {"Rmenny2"}, {"RGyAlkalmazas"}};

constexpr Column azonosit[] = {{"END_AZON", Type::code}, {"Tp_naplo", Type::whole}};

constexpr Column gepazonosito[] = {{"Gepazon", Type::code}};

constexpr Column utolsok[] = {{"UTPaciens", Type::whole}};

constexpr Column defaultTable[] = {
    {"SZAKREND", Type::code}, {"ORVKOD", Type::code}, {"NAPLO", Type::whole}, {"TN", Type::whole}};

constexpr Column intezet[] = {
    {"Int_nev"}, {"Gyogyi_kod"}, {"Orv_kod"}, {"Szakrend_kod"}, {"City"}, {"Bankszamla"},
    {"Adoig_szam"}, {"NBK_KOD"}, {"irsz"}, {"cim"}};

constexpr Column egyebpar[] = {
    {"Amb_ert"}, {"Felh1_nev"}, {"Felh2_nev"}, {"Felh3_nev"}, {"Felh4_nev"}, {"Felh5_nev"},
    {"Felh1_hossz"}, {"Felh2_hossz"}, {"Felh3_hossz"}, {"Felh4_hossz"}, {"Felh5_hossz"},
    {"Attunes", Type::whole}};

constexpr Column beallitasok[] = {{"Elso_inditas", Type::whole}};

constexpr Column verziok[] = {{"beav"}, {"diagnos"}, {"gyogysz"}};

constexpr Column szakrend[] = {
    {"REND_KOD", Type::code}, {"REND_NEV"}, {"SZORZO", Type::number}, {"S"}, {"ST"}, {"ORVOSKOD"},
    {"NORV"}, {"GOND"}, {"NGOND"}};

constexpr Column orvosok[] = {
    {"ORVKOD", Type::code}, {"NEV"}, {"KOD", Type::number}, {"BEOSZTAS"}, {"RANG"}};

constexpr Column bekuldo[] = {{"KOD", Type::code}, {"NEV"}};

constexpr Column funkcio[] = {{"FUNKCIO", Type::code}, {"BEAVKOD", Type::code}};

constexpr Column irsz[] = {{"IRSZ", Type::code}, {"NEV"}};

constexpr Column allampol[] = {{"ORSZAG"}, {"ROV", Type::code}, {"EUKOD", Type::code}};

constexpr Column gyogyszer[] = {
    {"Azonosito", Type::code}, {"Forma"}, {"Nev"}, {"Sz"}, {"Mennyiseg"}, {"Alkalmazas"}, {"Torolve"},
    {"TTT", Type::code}};

constexpr Column beavTable[] = {
    {"BEAV_KOD", Type::code}, {"BEAV_NEV"}, {"NEMET_PONT", Type::number}, {"SPACE19"}, {"SPACE20"},
    {"TIPUS"}};

constexpr Column codePair[] = {{"BEAV_KOD1", Type::code}, {"BEAV_KOD2", Type::code}};

constexpr Column kozlonySzam[] = {{"Kozlonyszam"}};

constexpr Column diagnosTable[] = {
    {"D_KOD", Type::code}, {"D_NEV"}, {"D_NEM"}, {"D_ALSO"}, {"D_FELSO"}, {"FLAG"}, {"D_JEL"}};

constexpr Column frissites[] = {{"FrissitesDatuma"}};

constexpr Column gyogyszTable[] = {
    {"SWITCH"}, {"TKTORLES"}, {"NBK_NEV"}, {"HATOANYAG"}, {"KOZHID"}, {"NBK_DAT"}, {"TIPUS"},
    {"NBK_TTT"}, {"NBK_EAN"}, {"NBK_TK"}, {"TKTORLESDAT"}, {"NBK_KSZ"}, {"GYFORMA"}, {"NBK_ATC"},
    {"ADAGMOD"}, {"ID_GYFORMA"}, {"RENDELHET"}, {"EGYENID"}, {"OHATO_MENNY"}, {"HATO_MENNY"},
    {"HATO_EGYS"}, {"KISZ_MENNY"}, {"KISZ_EGYS"}, {"DDD_MENNY"}, {"DDD_EGYS"}, {"DDD_FAKTOR"},
    {"NBK_TAR"}, {"NBK_NKAR"}, {"NBK_FAN"}, {"NBK_FAB"}, {"NBK_AFA"}, {"NBK_ITM"}, {"NBK_JC1"},
    {"NBK_JC2"}, {"NBK_JC3"}, {"NBK_JC4"}, {"NBK_JC5"}, {"KGYKERET"}, {"EGYSEGAR"}, {"NORM_TIP"},
    {"NORM_SZAZ"}, {"NORM_FIXID"}, {"NORM_REFNTK"}, {"NBK_INN"}, {"NBK_INB"}, {"NORM_TERDIJ"},
    {"NTK_TD"}, {"EUEM_TIP"}, {"EUEM_SZAZ"}, {"EUEM_FIXID"}, {"EUEM_REFNTK"}, {"NBK_EUN"}, {"NBK_EUB"},
    {"EUEM_TERDIJ"}, {"EUEM_PONTOK"}, {"EUKIEM_TIP"}, {"EUKIEM_SZAZ"}, {"EUKIEM_FIXID"},
    {"EUKIEM_REFNTK"}, {"NBK_EU100N"}, {"NBK_EU100B"}, {"EUKIEM_TERDIJ"}, {"EUKIEM_PONTOK"},
    {"FORGALOMBAN"}, {"BESOROLAS"}, {"PATIKA"}, {"KIHI"}, {"FELME"}, {"EGYEDI"}, {"NBK_ISO"},
    {"FORGENGT"}, {"FORGENGT_ID"}, {"FORGALMAZ"}, {"FORGALMAZ_ID"}, {"BRANDNEV"}, {"BRAND_ID"}};

constexpr Column leval[] = {{"Szakrend", Type::code}, {"BekRekSzam", Type::whole}};

constexpr Column levalEr[] = {
    {"R_azon", Type::code}, {"Rendelo"}, {"Bek"}, {"Borv_azon"}, {"Orv_azon"}, {"Naplo"}, {"Taj"},
    {"Az_tip"}, {"Nem"}, {"Szul"}, {"Datum"}, {"Ora"}, {"Irszam"}, {"Allampol"}, {"Ell_tip"},
    {"Baleset"}, {"Tova"}, {"Terkat"}, {"Termod"}, {"Termen"}, {"Rterdij"}, {"Elsznyil"}, {"Badat"},
    {"Bdatum"}, {"Labor"}, {"Rtg"}, {"Ctmr"}, {"Fizioter"}, {"K_kep"}, {"Utkltg"}, {"Recept"},
    {"Gyogyseg"}, {"Gyogyfurd"}, {"Bno_1"}, {"Bno_2"}, {"Bno_3"}, {"Bno_4"}, {"Bno_5"}, {"Who_1"},
    {"Who_2"}, {"Who_3"}, {"Who_4"}, {"Who_5"}, {"Who_6"}, {"Menny_1"}, {"Menny_2"}, {"Menny_3"},
    {"Menny_4"}, {"Menny_5"}, {"Menny_6"}, {"Jell_1"}, {"Jell_2"}, {"Jell_3"}, {"Jell_4"}, {"Jell_5"},
    {"Jell_6"}};

// The corrected report's rows: the same columns and these.
constexpr Column correctionColumns[] = {{"Jav"}, {"Er_azon"}, {"Enaplo"}, {"Edatum"}};
constexpr auto levalJav = joined(levalEr, correctionColumns);

constexpr Column levalTp[] = {
    {"JELTIP"}, {"TAJSZAM"}, {"TNEM"}, {"TDIAG"}, {"TNAPLO"}, {"ELOZONAPLO"}, {"GYERTAJ"}, {"FELVMOD"},
    {"TAPJELL"}, {"MEGSZMOD"}, {"ELETKOR"}, {"KKALLKEZD"}, {"KKALLVEG"}};

constexpr Column ellenor[] = {
    {"EllenorzesMod"}, {"TAJ", Type::code}, {"Jogviszony"}, {"Hibakod"}, {"HibaLeiras"}, {"Allapot"},
    {"szVezetek"}, {"szUtonev1"}, {"szUtonev2"}, {"aVezetek"}, {"aUtonev1"}, {"aUtonev2"}, {"szHely"},
    {"szEv"}, {"szHo"}, {"szNap"}, {"neme"}, {"datum"}, {"VizDijKot"}};

constexpr Column tranzakciok[] = {
    {"Datum"}, {"Kod", Type::code}, {"TAJ", Type::code}, {"Jogviszony"}, {"Hiba"},
    {"Adatlap", Type::code}};

constexpr Column szemely[] = {
    {"ID", Type::whole}, {"TAJ", Type::code}, {"TAJTIP"}, {"NEV"}, {"ANYJANEVE"},
    {"IDALLPOLG", Type::whole}, {"SZULIDO"}, {"LHIRSZ"}, {"LHVAROS"}, {"LHCIM"}, {"KOZGYOGY"}, {"TOROLVE"},
    {"IDSZOLGALTATO", Type::whole}, {"KARTONSZAM"}};

constexpr Column szolgaltato[] = {{"ID", Type::whole}, {"NEV"}, {"ANTSZKOD"}, {"ORVOSKOD"}};

constexpr Column allampolgarsag[] = {{"ID", Type::whole}, {"KOD", Type::code}};

constexpr Column zekaIntezet[] = {{"SzekhelyIrsz"}, {"SzekhelyCity"}, {"SzekhelyCim"}};
// clang-format on

constexpr std::string_view paciensekSearched[] = {"ID", "TAJ"};
constexpr std::string_view betegSearched[] = {"AZONOSITO", "F_DATUM", "SZEM_SZAM"};
constexpr std::string_view euszolgSearched[] = {"Azonosito"};
constexpr std::string_view euAdatlSearched[] = {"EU_AZON"};
constexpr std::string_view tappenzSearched[] = {"TAZON", "TTAJSZAM"};
constexpr std::string_view receptekSearched[] = {"AAzonosito"};
constexpr std::string_view defaultTableSearched[] = {"SZAKREND"};
constexpr std::string_view szakrendSearched[] = {"REND_KOD"};
constexpr std::string_view orvosokSearched[] = {"ORVKOD"};
constexpr std::string_view bekuldoSearched[] = {"KOD"};
constexpr std::string_view irszSearched[] = {"IRSZ"};
constexpr std::string_view allampolSearched[] = {"ROV"};
constexpr std::string_view beavTableSearched[] = {"BEAV_KOD"};
constexpr std::string_view diagnosTableSearched[] = {"D_KOD"};
constexpr std::string_view tranzakciokSearched[] = {"Kod"};

constexpr Table tetdataTables[] = {
    {"Paciensek", paciensek, paciensekSearched, {}, "TAJ"},
    {"BETEG", beteg, betegSearched},
    {"EUSZOLG", euszolg, euszolgSearched},
    {"EU_ADATL", euAdatl, euAdatlSearched},
    {"TAPPENZ", tappenz, tappenzSearched},
    {"Receptek", receptek, receptekSearched},
    {"AZONOSIT", azonosit, {}, "insert into AZONOSIT values ('0000000000', 0)"},
    {"Gepazonosito", gepazonosito, {}, "insert into Gepazonosito values ('')"},
    {"DEFAULT", defaultTable, defaultTableSearched},
    {"intezet", intezet},
    {"Utolsok", utolsok, {}, "insert into Utolsok values (0)"},
    {"EGYEBPAR",
     egyebpar,
     {},
     "insert into EGYEBPAR values ('N', ' ', ' ', ' ', ' ', ' ', '', '', '', '', '', 0)"},
    {"Beallitasok", beallitasok, {}, "insert into Beallitasok values (1)"},
    {"Verziok", verziok, {}, "insert into Verziok values ('', '', '')"},
};

constexpr Table tetmodTables[] = {
    {"SZAKREND", szakrend, szakrendSearched},
    {"ORVOSOK", orvosok, orvosokSearched},
    {"BEKULDO", bekuldo, bekuldoSearched},
    {"FUNKCIO", funkcio},
    {"IRSZ", irsz, irszSearched},
    {"ALLAMPOL", allampol, allampolSearched},
    {"Gyogyszer", gyogyszer},
};

constexpr Table beavTables[] = {
    {"BEAV", beavTable, beavTableSearched},
    {"Kizarva", codePair},
    {"Egyutt", codePair},
    {"KozlonySzam", kozlonySzam, {}, "insert into KozlonySzam values ('')"},
};

constexpr Table diagnosTables[] = {
    {"DIAGNOS", diagnosTable, diagnosTableSearched},
};

constexpr Table gyogysz2Tables[] = {
    {"GYOGYSZ", gyogyszTable},
};

constexpr Table gyogyszTables[] = {
    {"Frissites", frissites, {}, "insert into Frissites values ('')"},
};

constexpr Table tetsegedTables[] = {
    {"Leval", leval},      {"Leval_er", levalEr},           {"Leval_jav", levalJav},
    {"Leval_tp", levalTp}, {"BETEG", beteg, betegSearched}, {"EUSZOLG", euszolgScratch},
};

constexpr Table osszedataTables[] = {
    {"AZONOSIT", azonosit},
    {"Gepazonosito", gepazonosito},
    {"BETEG", beteg, betegSearched},
    {"EUSZOLG", euszolg, euszolgSearched},
    {"EU_ADATL", euAdatl, euAdatlSearched},
    {"Tappenz", tappenz, tappenzSearched},
    {"Receptek", receptek, receptekSearched},
    {"Paciensek", paciensek, paciensekSearched},
};

constexpr Table tajKapuTables[] = {
    {"Ellenor", ellenor},
    {"Tranzakciok", tranzakciok, tranzakciokSearched},
};

constexpr Table zekaTables[] = {
    {"SZEMELY", szemely},
    {"SZOLGALTATO", szolgaltato},
    {"ALLAMPOLGARSAG", allampolgarsag},
    {"Intezet", zekaIntezet},
};

// The stored queries of the official drug list: the table's columns, and the fee of the respective title as
// NTK.
constexpr View gyogysz2Views[] = {
    {"NORM_GYOGYSZ", "select *, NTK_TD as NTK from GYOGYSZ"},
    {"EUEM_GYOGYSZ", "select *, NTK_TD as NTK from GYOGYSZ"},
    {"EUKIEM_GYOGYSZ", "select *, NTK_TD as NTK from GYOGYSZ"},
};

// Of td2.mdb: the one-row tables that the conversion of 1.x data copies.
constexpr std::string_view filledByConversion[] = {"AZONOSIT", "Gepazonosito", "Utolsok", "EGYEBPAR"};

constexpr File allFiles[] = {
    {DataFile::tetdata, "tetdata.mdb", tetdataTables},
    {DataFile::tetmod, "tetmod.mdb", tetmodTables},
    {DataFile::beav, "beav.mdb", beavTables},
    {DataFile::diagnos, "diagnos.mdb", diagnosTables},
    {DataFile::gyogysz2, "gyogysz2.mdb", gyogysz2Tables, gyogysz2Views},
    {DataFile::gyogysz, "gyogysz.mdb", gyogyszTables},
    {DataFile::tetseged, "tetseged.mdb", tetsegedTables},
    {DataFile::osszedata, "osszedata.mdb", osszedataTables},
    {DataFile::TAJKapu, "TAJKapu.mdb", tajKapuTables},
    {DataFile::ZEKA, "ZEKA.mdb", zekaTables},
    // The converter fills a copy of this file: the same tables as tetdata.
    {DataFile::td2, "td2.mdb", tetdataTables, {}, filledByConversion},
};

} // namespace

std::span<const File> files() {
    return allFiles;
}

const File& file(DataFile wanted) {
    return allFiles[static_cast<std::size_t>(wanted)];
}

QString fileName(DataFile wanted) {
    const std::string_view name = file(wanted).name;
    return QString::fromLatin1(name.data(), static_cast<qsizetype>(name.size()));
}

} // namespace vandrel::catalogue
