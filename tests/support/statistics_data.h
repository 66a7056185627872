// One small clinic for the tests of the lists: two units, two fee categories and one that no list of the
// panel takes, a patient with several visits, and everything that may be unknown or empty.
#pragma once

#include "support/test_workstation.h"

namespace vandrel::test {

inline void addStatisticsData(TestWorkstation& test) {
    test.data().executeScript(
        "pragma synchronous=off;" // the rows of a test need not outlive a power cut
        "insert into intezet (Int_nev, City, Bankszamla, Adoig_szam, Gyogyi_kod) values"
        " ('Városi Rendelő', 'Szeged', '11111111-22222222-33333333', '12345678-2-41', '0102');"
        "insert into Paciensek (ID, TAJ, Azon_Tipus, Nem, Szul_Dat, Neve, Irszam, City, Cim) values"
        " (1, '123456788', '1', '2', '1960.02.03.', 'Őri Ágnes', '6720', 'Szeged', 'Fő u. 1.'),"
        " (2, '129999990', '3', '1', '1970.05.06.', 'O''Brien Pál', '1011', 'Budapest', 'Vár 2.');"
        "insert into BETEG (AZONOSITO, SZEM_SZAM, PaciensId, SZAKREND, IGENYLO, ORVKOD, NAPLO, TERITES,"
        " DIAG1, DIAG2, DIAG3, DIAG5, F_DATUM, F_IDO, ELL_TIP, VizDijOsszeg) values"
        " ('A010000001', '123456788', 1, '020000002', 'X9', '22222', '7', '01', 'I10H0', ' ', ' ', ' ',"
        "  '2008.03.10.', '10:20:00', '1', 300),"
        " ('A010000002', '123456788', 1, '010000001', 'B1', '11111', '12', '01', 'I10H0', 'E1190', ' ',"
        "  'J0390', '2008.03.05.', '08:05:00', '2', 1000),"
        " ('A010000003', '123456788', 1, '010000001', 'B1', '11111', '9', '01', ' ', ' ', ' ', ' ',"
        "  '2008.03.05.', '14:00:00', '2', 0),"
        " ('A010000004', '129999990', 2, '010000001', 'B1', '22222', '3', '06', 'E1190', ' ', ' ', ' ',"
        "  '2008.03.31.', '07:30:00', '3', null),"
        " ('A010000005', '999999999', 0, '020000002', ' ', '11111', '8', '01', 'I10H0', null, null, null,"
        "  '2008.03.10.', '09:00:00', '1', 300),"
        " ('A010000006', '123456788', 1, '010000001', 'B1', '11111', '20', '01', 'I10H0', ' ', ' ', ' ',"
        "  '2008.04.01.', '08:00:00', '1', 500),"
        " ('A010000007', '888888888', 0, '010000001', 'B1', '11111', '15', '0F', 'I10H0', ' ', ' ', ' ',"
        "  '2008.03.20.', '11:45:00', '1', 300);"
        "update BETEG set TOVA='0', BALESET1='4', BALESET2='1', LABOR='1', RTG='2', CTMR='3', FIZIO='4',"
        " K_KEP='5', UTKLTG='6', RECEPT='7', GYOGYSEG='8', GYOGYFURD='9' where AZONOSITO='A010000002';"
        "insert into EUSZOLG (Azonosito, BEAV, MENNY) values"
        " ('A010000001', '42400', 2), ('A010000001', '11041', 1),"
        " ('A010000002', '99999', 3), ('A010000002', '11041', 1), ('A010000004', '11041', 10),"
        " ('A010000005', '42400', 1), ('A010000006', '11041', 100), ('A010000007', '11041', 1200);");
    test.dictionaries().executeScript(
        "pragma synchronous=off;"
        "insert into SZAKREND (REND_KOD, REND_NEV, SZORZO) values ('010000001', 'Belgyógyászat', 1.5),"
        " ('020000002', 'Sebészet', 1);"
        "insert into ORVOSOK (ORVKOD, NEV) values ('11111', 'Dr. Első');"
        "insert into BEKULDO (KOD, NEV) values ('B1', 'Háziorvos');");
    test.workstation.files[DataFile::beav].executeScript(
        "insert into BEAV (BEAV_KOD, BEAV_NEV, NEMET_PONT) values ('11041', 'Vizsgálat', 540),"
        " ('42400', 'Szakorvosi konzílium több társszakma bevonásával, a leletek együttes értékelésével és "
        "írásos véleménnyel', 1234.5);");
    test.workstation.files[DataFile::diagnos].executeScript(
        "insert into DIAGNOS (D_KOD, D_NEV) values ('I10H0', 'Magas vérnyomás'),"
        " ('E1190', 'Cukorbetegség');");
    test.workstation.files[DataFile::tetseged].executeScript(
        "pragma synchronous=off;"
        "insert into EUSZOLG (Azonosito, BEAV, MENNY) values ('OLD0000001', '11041', 777);");
}

} // namespace vandrel::test
