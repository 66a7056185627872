// Lists, TAJ check and field checks. The lists' texts themselves are data; what is held here is where list
// and check differ, and what becomes of a field.
#include "foundation/code_lists.h"

#include "foundation/field_checks.h"
#include "foundation/look_ups.h"
#include "foundation/pick_source.h"
#include "foundation/taj_check.h"
#include "platform/format.h"
#include "support/test_workstation.h"

using namespace Qt::StringLiterals;

namespace vandrel::test {

TEST(TajCheck, ResultAndMessage) {
    const struct {
        const char16_t* taj;
        TajResult result;
        const char16_t* message;
    } cases[] = {
        {u"123456788", TajResult::good, u""},
        {u"000000000", TajResult::good, u""}, // nine zeros pass by the arithmetic
        {u"111111110", TajResult::good, u""},
        {u"123456789", TajResult::wrongDigit, u"Hibás a TAJ szám, kérem javítsa!"},
        {u"213456788", TajResult::wrongDigit, u"Hibás a TAJ szám, kérem javítsa!"}, // two digits changed over
        {u"", TajResult::wrongLength, u"A TAJ számnak 9 számjegyűnek kell lennie !"},
        {u"00000000", TajResult::wrongLength, u"A TAJ számnak 9 számjegyűnek kell lennie !"},
        {u"1234567880", TajResult::wrongLength, u"A TAJ számnak 9 számjegyűnek kell lennie !"},
        {u"12345678A", TajResult::notDigits, u"Ez a Taj. nem felel meg az előírásoknak!"},
        {u"A23456788", TajResult::notDigits, u"Ez a Taj. nem felel meg az előírásoknak!"},
        {u"12345 788", TajResult::notDigits, u"Ez a Taj. nem felel meg az előírásoknak!"},
        {u"١٢٣٤٥٦٧٨٨", TajResult::notDigits, u"Ez a Taj. nem felel meg az előírásoknak!"},
    };
    for (const auto& c : cases) {
        const QString taj = QString::fromUtf16(c.taj);
        SCOPED_TRACE(taj.toStdString());
        EXPECT_EQ(checkTaj(taj), c.result);
        EXPECT_EQ(tajValid(taj), c.result == TajResult::good);
        ExpectedDialogue dialogue;
        const QString message = QString::fromUtf16(c.message);
        if (!message.isEmpty())
            dialogue.expect(message, c.result == TajResult::notDigits ? programTitle : u"Hiba!"_s);
        checkTajWithMessages(dialogue, taj);
    }
}

class FieldChecks : public testing::Test {
  protected:
    FieldChecks() {
        station.dictionaries().executeScript("insert into SZAKREND (REND_KOD,REND_NEV) values "
                                             "('010000001','Sebészet'); insert into ORVOSOK (ORVKOD) values "
                                             "('12345');");
        station.workstation.files[DataFile::diagnos].executeScript(
            "insert into DIAGNOS (D_KOD,D_NEV) values ('J0690','Felső légúti fertőzés');");
        station.workstation.files[DataFile::beav].executeScript(
            "insert into BEAV (BEAV_KOD,BEAV_NEV,NEMET_PONT) values ('1104A','Vizsgálat',560);");
    }
    TestWorkstation station;
};

TEST_F(FieldChecks, WhatBecomesOfAField) {
    const struct {
        const char* field;
        const char16_t* typed;
        const char16_t* becomes;
        const char16_t* message = u""; // told: the field is refused
        bool altEng = true;
    } cases[] = {
        // empty
        {"Terites", u"", u"01"},
        {"Terites", u"  ", u"01"},
        {"Baleset", u"", u"00"},
        {"Ell_tip", u"", u"1"},
        {"Tova", u"", u"0"},
        {"EU_LAP", u"", u"0"},
        {"VizitDij", u"", u"01"},
        {"ElszNyil", u"", u""},
        {"VizitdijFizMod", u"", u""},
        {"BeavJelleg", u"", u""},
        {"Diag3", u"", u""},
        {"Szakrend", u"", u""},
        // the list offers 01, the check takes 11
        {"Baleset", u"01", u"01", u"Nincs ilyen típusú 'Baleset'!"},
        {"Baleset", u"11", u"11"},
        {"Terites", u"0R", u"0R"},
        {"Terites", u"0r", u"0R"},
        {"Terites", u"07", u"07", u"Nincs ilyen típusú 'Térítési kategória'!"},
        {"Ell_tip", u"9", u"9", u"Nincs ilyen típusú 'Ellátás'!"},
        {"Tova", u"9", u"9", u"Nincs ilyen típusú 'Továbbküldés kód'!"},
        {"EU_LAP", u"2", u"2", u"Nincs ilyen típusú 'EU adatlap kód'!"},
        {"ElszNyil", u"30", u"10", u"Nincs ilyen típusú 'Elszámolási nyilatkozat'!"},
        {"VizitDij", u"xx", u"xx"},
        {"VizitdijFizMod", u"99", u"99"},
        {"VizitdijFizMod", u"06", u"01", u"Nincs ilyen típusú 'Vizitdíj fizetési mód'!"},
        {"BeavJelleg", u"X", u"A", u"Nincs ilyen típusú 'Beavatkozás jelleg'!"},
        {"BeavJelleg", u"v", u"V"},
        // dictionaries
        {"Szakrend", u"010000001", u"010000001"},
        {"Szakrend", u"' or ''='", u"", u"Ilyen 'Szakrendelőkód' nincs!Írjon be másikat!"},
        {"Diag1", u"j0690", u"J0690"},
        {"Diag5", u"J06", u"", u"Nincs ilyen 'BNO kód'!"},
        {"BEAV", u"1104a", u"1104A"},
        {"BEAV", u"99999", u"", u"Nincs ilyen 'Beavatkozás kód'!"},
        // the groups exclude each other
        {"Labor", u"x", u"x"},
        {"Terites", u"", u"", u"", false},
        {"Diag1", u"nincs", u"nincs", u"", false},
        {"Labor", u"", u"0", u"", false},
        {"Labor", u"9", u"9", u"", false},
        {"Ctmr", u"5", u"5", u"Nem megfelelő 'CT, MR, PET vizsg. kérés' kód!", false},
        {"K_kep", u"6", u"6", u"Nem megfelelő 'Ker. képesség elbírálás'kód!", false},
        {"Utkltg", u"3", u"3", u"", false},
        {"Tapjell", u"0", u"0", u"Nem megfelelő 'Táppénz jelleg' kód!", false},
        {"Nem", u"0", u"0", u"", false}, // not in the list
        {"Nem", u"3", u"3", u"Nincs ilyen típusú 'Nem' kód!", false},
        {"Azon_tipus", u"7", u"7", u"Nincs ilyen típusú TAJ szám!", false},
        {"Felvmod", u"V", u"V", u"", false},
        {"Felvmod", u"K", u"K", u"Nincs ilyen típusú 'Táppénzes felvételi mód'!", false},
        {"Orvkod", u"12345", u"12345", u"", false},
        {"Orvkod", u"54321", u"54321", u"Ilyen 'Orvoskód' nincs!Írjon be másikat!", false},
        // no check at all
        {"NOTE", u"'", u"'"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(std::string(c.field) + " <" + QString::fromUtf16(c.typed).toStdString() + ">");
        const FieldVerdict verdict = checkField(station.workstation, QString::fromLatin1(c.field),
                                                QString::fromUtf16(c.typed), c.altEng, true);
        EXPECT_EQ(verdict.value, QString::fromUtf16(c.becomes));
        const CheckFailure failure = verdict.failure.value_or(CheckFailure{});
        EXPECT_EQ(failure.message, QString::fromUtf16(c.message));
        EXPECT_EQ(failure.field.toStdString(), *c.message == 0 ? "" : c.field);
        EXPECT_EQ(failure.title, *c.message == 0 ? programTitle : u"Hiba"_s);
    }
    // The unit is checked on new sheets only.
    EXPECT_EQ(checkField(station.workstation, u"Szakrend"_s, u"9"_s, true, false).value, u"9"_s);
}

TEST(DateChecks, YearsMasksAndMessages) {
    const QString birth = u"Hibás a születési dátum, kérem javítsa!"_s;
    const QString referral = u"Hibás a beutaló kelte, kérem javítsa!"_s;
    const QString care = u"Hibás a felviteli dátum, kérem javítsa!"_s;
    const struct {
        DateField field;
        QString typed, message;
    } cases[] = {
        {DateField::birth, u"1860.01.01."_s, {}},
        {DateField::birth, u"1859.12.31."_s, birth},
        {DateField::birth, u"2007.02.29."_s, birth},
        {DateField::birth, u"2008.02.29."_s, {}},
        {DateField::birth, format::emptyDate, birth},
        {DateField::referral, u"1859.12.31."_s, referral},
        {DateField::referral, u"2008.13.01."_s, referral},
        {DateField::referral, u"2008. 3. 1."_s, referral},
        {DateField::referral, format::emptyDate, {}},
        {DateField::care, u"1859.12.31."_s, {}},
        {DateField::care, u"2008.04.31."_s, care},
        {DateField::care, format::emptyDate, care},
        {DateField::exemptionExpiry, u"2008.04.31."_s, care},
        {DateField::exemptionExpiry, format::emptyDate, {}},
    };
    for (const auto& c : cases) {
        const std::optional<CheckFailure> failure = checkDateField(c.field, c.typed);
        EXPECT_EQ(failure ? failure->message : QString(), c.message) << c.typed.toStdString();
        EXPECT_TRUE(!failure || failure->title == u"Hiba!"_s);
    }
}

TEST_F(FieldChecks, PickListLinesOfTables) {
    station.data().executeScript("insert into Paciensek (ID,TAJ,Neve,Irszam,City,Cim) values "
                                 "(1,'123456788','Kovács Éva','1011','Budapest','Fő u. 1.'), "
                                 "(2,'000000000',null,null,null,null);");
    const auto patients = openPickSource(station.workstation, PickMarker::Paciens);
    ASSERT_EQ(patients->count(), 2);
    EXPECT_EQ(patients->line(0), u"123456788 - Kovács Éva: 1011 - Budapest, Fő u. 1."_s);
    EXPECT_EQ(patients->line(1), u"000000000 - :  - , "_s);
    // The list is a snapshot and holds no lock: rows may go and come while it is open.
    station.data().executeScript("delete from Paciensek where ID=1");
    EXPECT_EQ(patients->line(0), QString());
    EXPECT_EQ(patients->line(2), QString());
    EXPECT_EQ(openPickSource(station.workstation, PickMarker::Szakrend)->line(0), u"010000001 - Sebészet"_s);
    EXPECT_EQ(openPickSource(station.workstation, PickMarker::Orvkod)->line(0), u"12345 - "_s);
    const auto accidents = openPickSource(station.workstation, PickMarker::Baleset);
    EXPECT_EQ(accidents->count(), 13);
    EXPECT_EQ(accidents->line(1).left(2), u"01"_s); // offered, and refused by the check
}

TEST_F(FieldChecks, LookUps) {
    Workstation& w = station.workstation;
    station.dictionaries().executeScript(
        "insert into IRSZ values ('7621','Pécs'), ('7623','Pécs II'), ('1011','Budapest');"
        "insert into BEKULDO values ('O''B%','Orvos');"
        "update SZAKREND set SZORZO=1.5;");
    station.data().executeScript(
        "insert into EUSZOLG values ('ABC0000001','1104a',2,'A'), ('ABC0000001','zzz',1,'V'), "
        "('ABC0000002','1104A',1,'A');"
        "insert into Paciensek (ID,TAJ,Neve) values (7,'123456788','Kovács Éva');");
    EXPECT_EQ(Visszaad_beav(w, u"1104a"_s).name, u"Vizsgálat"_s);
    EXPECT_EQ(Visszaad_beav(w, u"1104A"_s).points, 560.0);
    EXPECT_EQ(Visszaad_beav(w, u"x"_s).name, u" "_s);
    EXPECT_EQ(Visszaad_beav(w, u"x"_s).points, 0.0);
    EXPECT_EQ(Visszaad_szakrend_szorzo(w, u"010000001"_s), 1.5);
    EXPECT_EQ(Visszaad_szakrend_szorzo(w, u"x"_s), 1.0);
    EXPECT_EQ(Visszaad_bekuldo(w, u"o'b%"_s), u"Orvos"_s);
    EXPECT_EQ(Visszaad_bekuldo(w, u"o'b"_s), u" "_s);
    EXPECT_EQ(Visszaad_orvos(w, u"x"_s), QString());
    EXPECT_EQ(Visszaad_VizDijFizModNev(u"02"_s), u"vizitbérlettel"_s);
    EXPECT_EQ(patientCaption(w, 7), u"Kovács Éva (123456788)"_s);
    EXPECT_EQ(patientCaption(w, 8), QString());
    EXPECT_EQ(procedureSummary(w, u"ABC0000001"_s), u"Vizsgálat(1104a), (zzz)"_s);
    const std::pair<const char16_t*, const char16_t*> towns[] = {
        {u"76", u"Pécs"}, {u"7623", u"Pécs II"}, {u"9", u""}, {u"", u""}, {u"%", u""}, {u"' or 1=1 --", u""}};
    for (const auto& [typed, town] : towns)
        EXPECT_EQ(townByPrefix(w, QString::fromUtf16(typed)), QString::fromUtf16(town));
    EXPECT_EQ(townOf(w, u"762"_s), QString());
    EXPECT_EQ(townOf(w, u"7621"_s), u"Pécs"_s);

    QString text = u"előző"_s;
    feeCategoryText(u"0M"_s, text);
    EXPECT_EQ(text, u"előző"_s); // no text of its own
    feeCategoryText(u"06"_s, text);
    EXPECT_EQ(text, u"fekvőbeteg"_s);
}

TEST(WeekOf, CountsFromTheYearOfToday) {
    const QDate today(2008, 4, 3); // the first of January 2008 is a Tuesday
    EXPECT_EQ(weekOf(QDate(2008, 1, 1), today), 1);
    EXPECT_EQ(weekOf(QDate(2008, 1, 6), today), 1);
    EXPECT_EQ(weekOf(QDate(2008, 1, 7), today), 2);
    EXPECT_EQ(weekOf(QDate(2008, 3, 9), today), 10);
    EXPECT_EQ(weekOf(QDate(2007, 12, 31), today), 1);
    EXPECT_EQ(weekOf(QDate(2007, 12, 30), today), 0);
    EXPECT_EQ(weekOf(QDate(2007, 12, 24), today), 0);
    EXPECT_EQ(weekOf(QDate(2007, 12, 23), today), -1);
    EXPECT_EQ(weekOf(QDate(2009, 1, 5), today), 54);
    EXPECT_EQ(weekOf(QDate(2010, 1, 1), QDate(2010, 6, 1)), 1); // a Friday
}

} // namespace vandrel::test
