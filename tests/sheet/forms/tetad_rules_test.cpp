// The rules that run while the sheet is typed: the register's patient for a TAJ, the town of a postal code,
// what happens when a field is left, and what fields make of each other. Real keys all through.
#include "support/sheet_screen.h"

#include <QCheckBox>
#include <QPushButton>
#include <QTableWidget>

using namespace Qt::StringLiterals;

namespace vandrel::test {

using TetadPatient = SheetTest;
using TetadLeave = SheetTest;
using TetadFee = SheetTest;
using TetadOther = SheetTest;
using TetadProcedures = SheetTest;

TEST_F(TetadPatient, RegisterFillsAsTheTajIsTyped) {
    type("Szem_szam", u"1"_s); // the first of the register's order
    EXPECT_EQ(text("Szem_szam"), u"123456788"_s);
    EXPECT_EQ(field("Szem_szam")->selectedText(), u"23456788"_s);
    EXPECT_EQ(texts("Neve Irszam City Cim Anyja_neve Leanykori_neve KgySzam KgyLe Azon_tipus Nem Szul_dat"),
              u"Őri Ágnes|6720|Szeged|Fő u. 1.|Kiss Mária|Nagy Ágnes|77|    .  .  .|1|2|1960.02.03."_s);
    typeText(u"29"_s); // goes on over the completion
    EXPECT_EQ(field("Szem_szam")->selectedText(), u"999990"_s);
    EXPECT_EQ(texts("Szem_szam Neve City KgyLe"), u"129999990|O'Brien <b>Pál</b>|Budapest|2009.01.31."_s);
    pressKey(Qt::Key_Backspace); // shortens what was typed, the completion does not hold it fast
    EXPECT_EQ(field("Szem_szam")->selectedText(), u"3456788"_s);
    EXPECT_EQ(text("Neve"), u"Őri Ágnes"_s);
    pressKey(Qt::Key_Backspace);
    pressKey(Qt::Key_Backspace);
    EXPECT_EQ(texts("Szem_szam Neve City Allampol_rov Szul_dat"), u"|||HUN|    .  .  ."_s);
}

TEST_F(TetadPatient, UnknownTajClearsAndTheTownFollowsThePostalCodeOnly) {
    type("City", u"Kézivár"_s);
    type("Szem_szam", u"12"_s);
    go("Neve");
    type("Szem_szam", u"9"_s);
    EXPECT_EQ(text("Neve"), QString());
    dialogue.expect(u"A TAJ számnak 9 számjegyűnek kell lennie !"_s, u"Hiba!"_s);
    EXPECT_EQ(pressKey(Qt::Key_Return), u"Azon_tipus"_s); // the message does not hold the focus
    type("Irszam", u"101"_s);
    EXPECT_EQ(text("City"), u"Budapest"_s);
    typeText(u"2"_s);
    EXPECT_EQ(text("City"), u"Budapest 12"_s);
    pressKey(Qt::Key_Backspace);
    EXPECT_EQ(text("City"), u"Budapest"_s);
    pressKey(Qt::Key_Return); // "101" is no postal code of its own
    EXPECT_EQ(text("City"), QString());
    enter(u"Kézivár"_s);
    EXPECT_EQ(text("City"), u"Kézivár"_s);
    go("Irszam"); // letters are dropped
    typeText(u"6a7-2,"_s);
    EXPECT_EQ(text("Irszam"), u"672,"_s);
}

TEST_F(TetadPatient, EmptyRegisterClearsNothingAndTheSwitchStopsTheSearch) {
    go("Terites");
    pressKey(Qt::Key_F1);
    form.findChild<QCheckBox*>(u"Alt_eng"_s)->setChecked(false);
    pressKey(Qt::Key_Escape);
    type("Neve", u"Kézi Név"_s);
    type("Szem_szam", u"1"_s);
    EXPECT_EQ(texts("Szem_szam Neve"), u"1|Kézi Név"_s);
    pressKey(Qt::Key_F1); // sets the switch on again
    pressKey(Qt::Key_Escape);
    setUp.data().execute("delete from Paciensek");
    typeText(u"23"_s);
    EXPECT_EQ(text("Neve"), u"Kézi Név"_s);
}

TEST_F(TetadPatient, EligibilityIsAskedOnlyWhereThereIsAService) {
    int asked = 0;
    form.setEligibilityCheck([&] { ++asked; });
    go("Szem_szam");
    enter();
    EXPECT_EQ(asked, 0); // an empty TAJ is not asked about
    fill({{"Szem_szam", u"123456788"}});
    EXPECT_EQ(asked, 1);
    form.findChild<QLabel*>(u"jogviszony"_s)->setText(u"I"_s);
    go("Szem_szam");
    pressKey(Qt::Key_Return);
    EXPECT_EQ(asked, 1);
    type("Szem_szam", u"12"_s);
    EXPECT_EQ(label("jogviszony"), QString());
}

TEST_F(TetadLeave, WrongValuesAreToldAndGiveTheFocusBack) {
    // One of each kind; every field's own text and value is held beside the rule.
    const struct {
        const char* field;
        const char16_t* typed;
        const char16_t* message; // empty: silent
        const char16_t* after;
        bool back;
        const char16_t* title = u"Hiba";
    } cases[] = {
        {"Szakrend", u"999999999", u"Ilyen 'Szakrendelőkód' nincs!Írjon be másikat!", u"", true},
        {"Szakrend", u"010000002", u"", u"010000002", false},
        {"Terites", u"99", u"Nincs ilyen típusú 'Térítési kategória'!", u"99", true},
        {"Terites", u"", u"", u"01", false},
        {"ElszNyil", u"99", u"Nincs ilyen típusú 'Elszámolási nyilatkozat'!", u"10", true},
        {"VizDijOsszeg", u"", u"", u"0", false},
        {"Diag1", u"XXXXX", u"Nincs ilyen 'BNO kód'!", u"", true},
        {"Anyja_neve", u"  ", u"Kötelezően kitöltendő adat!", u"  ", true},
        {"BeutaloKelte", u"18591231", u"Hibás a beutaló kelte, kérem javítsa!", u"1859.12.31.", true,
         u"Hiba!"},
        {"BeutaloKelte", u"", u"", u"    .  .  .", false},
        {"Szul_dat", u"20070230", u"Hibás a születési dátum, kérem javítsa!", u"2007.02.30.", true, u"Hiba!"},
        {"F_datum", u"20081301", u"Hibás a felviteli dátum, kérem javítsa!", u"2008.13.01.", true, u"Hiba!"},
        {"KgyLe", u"20089999", u"Hibás a felviteli dátum, kérem javítsa!", u"2008.99.99.", true, u"Hiba!"},
        {"Orvkod", u"99999", u"", u"99999", false}, // silent while the general switch is on
    };
    for (const auto& wrong : cases) {
        form.close();
        open();
        go(wrong.field);
        SCOPED_TRACE(std::string(wrong.field) + " " + QString::fromUtf16(wrong.typed).toStdString());
        pressKey(Qt::Key_Delete);
        typeText(QString::fromUtf16(wrong.typed));
        const QString message = QString::fromUtf16(wrong.message);
        if (!message.isEmpty()) dialogue.expect(message, QString::fromUtf16(wrong.title));
        pressKey(Qt::Key_Tab);
        EXPECT_EQ(text(wrong.field), QString::fromUtf16(wrong.after));
        EXPECT_EQ(focusName() == QLatin1StringView(wrong.field), wrong.back) << focusName().toStdString();
        EXPECT_TRUE(dialogue.allShown());
    }
}

TEST_F(TetadLeave, SwitchedOffTheOtherGroupOfChecksRuns) {
    go("Orvkod");
    pressKey(Qt::Key_F1);
    form.findChild<QCheckBox*>(u"Alt_eng"_s)->setChecked(false);
    pressKey(Qt::Key_Escape);
    dialogue.expect(u"Ilyen 'Orvoskód' nincs!Írjon be másikat!"_s, u"Hiba"_s);
    EXPECT_EQ(enter(u"99999"_s), u"Orvkod"_s);
    enter(u"22222"_s);
    fill({{"Terites", u"99"}}); // its check is of the other group
    EXPECT_EQ(focusName(), u"Baleset"_s);
}

TEST_F(TetadLeave, UnitBringsDoctorAndJournalNumber) {
    fill({{"Orvkod", u"22222"}, {"Szakrend", u"010000001"}});
    EXPECT_EQ(texts("Orvkod Naplo Szakrend_nev"), u"11111|13|Belgyógyászat / Dr. Első"_s);
    fill({{"Szakrend", u"010000002"}}); // no row of its own yet: the doctor stays
    EXPECT_EQ(texts("Orvkod Naplo"), u"11111|1"_s);
    setUp.data().execute("update [DEFAULT] set ORVKOD=null");
    fill({{"Szakrend", u"010000001"}});
    EXPECT_EQ(text("Orvkod"), QString());
}

TEST_F(TetadFee, PartFeeIsThereForItsCategoryOnly) {
    EXPECT_FALSE(visible("TerReszlDij"));
    EXPECT_EQ(label("Terites_cimke"), u"Térítési kategória:"_s);
    fill({{"Terites", u"0R"}});
    EXPECT_EQ(focusName(), u"TerReszlDij"_s);
    EXPECT_TRUE(visible("TerReszlDij_Ft"));
    EXPECT_EQ(label("Terites_cimke"), u"Térítési kategória/Részl. té. díj:"_s);
    enter();
    EXPECT_EQ(text("TerReszlDij"), u"0"_s);
    type("Terites", u"0"_s); // one letter away from it, the fee is gone
    EXPECT_FALSE(visible("TerReszlDij"));
    EXPECT_EQ(text("TerReszlDij"), QString());
    typeText(u"1"_s);
    EXPECT_FALSE(visible("EU_adatlap_gomb"));
    type("EU_LAP", u"1"_s);
    EXPECT_TRUE(visible("EU_adatlap_gomb"));
}

TEST_F(TetadOther, CapacityNeedsPatientAndMainDiagnosis) {
    const auto leaveCapacity = [&] {
        EXPECT_EQ(pressKey(Qt::Key_E, Qt::ControlModifier), u"Labor"_s);
        for (int i = 0; i < 4; ++i)
            pressKey(Qt::Key_Return);
    };
    dialogue.expect(u"A táppénzes adatok kitöltéséhez meg kell adni a páciens adatokat!"_s, u"Hiba"_s);
    leaveCapacity();
    EXPECT_EQ(focusName(), u"Szem_szam"_s);
    EXPECT_FALSE(visible("egyeb_keret"));
    typeText(u"123456788"_s);
    dialogue.expect(u"A táppénzes adatok kitöltéséhez meg kell a fődiagnózist!"_s);
    leaveCapacity();
    EXPECT_EQ(focusName(), u"Diag1"_s);
    typeText(u"I10H0"_s);
    leaveCapacity();
    EXPECT_EQ(focusName(), u"Fizio"_s);
    // Esc: back one field in the counts, out of the frame elsewhere.
    go("Gyogyfurd");
    pressKey(Qt::Key_Delete);
    for (const char* name : {"Gyogyseg", "Recept", "Utkltg"})
        EXPECT_EQ(pressKey(Qt::Key_Escape), QString::fromLatin1(name));
    EXPECT_EQ(text("Gyogyfurd"), u"0"_s);
    EXPECT_EQ(pressKey(Qt::Key_Escape), u"Diag1"_s);
}

TEST_F(TetadOther, UserFieldsFollowTheParameters) {
    setUp.data().executeScript("delete from EGYEBPAR; insert into EGYEBPAR (Felh2_nev, Felh2_hossz,"
                               " Felh4_nev, Felh4_hossz) values ('Karton <1>:', 3, 'Cím & szám', 0)");
    open();
    pressKey(Qt::Key_E, Qt::ControlModifier);
    EXPECT_FALSE(visible("Felh1"));
    EXPECT_TRUE(visible("Felh2"));
    EXPECT_EQ(field("Felh2")->accessibleName(), u"Karton <1>:"_s);
    type("Felh2", u"abcd"_s);
    EXPECT_EQ(text("Felh2"), u"abc"_s);
    EXPECT_EQ(pressKey(Qt::Key_Return), u"Felh4"_s);
    typeText(QString(40, u'x')); // without a length of its own the longest one holds
    EXPECT_EQ(text("Felh4"), QString(35, u'x'));
    pressKey(Qt::Key_Return);
    EXPECT_FALSE(visible("egyeb_keret"));
}

TEST_F(TetadProcedures, LinesAreWrittenAtOnceAndFunctionKeysFillTheCode) {
    auto* grid = form.findChild<QTableWidget*>(u"EUSZOLG"_s);
    const auto lines = [&] {
        return stored("select group_concat(BEAV||'/'||MENNY||'/'||BeavJelleg) from "
                      "(select * from EUSZOLG order by rowid)");
    };
    go("BEAV");
    pressKey(Qt::Key_F2);
    EXPECT_EQ(texts("BEAV BEAV_NEV"), u"11041|Vizsgálat"_s);
    EXPECT_EQ(grid->rowCount(), 0); // the key only fills the field
    pressKey(Qt::Key_Return);
    EXPECT_EQ(lines(), u"11041/1/V"_s);
    EXPECT_EQ(label("BEAV_NEV"), QString());
    pressKey(Qt::Key_F6); // does nothing
    EXPECT_EQ(text("BEAV"), QString());
    dialogue.expect(u"Nincs ilyen kód a beavatkozás törzsben!"_s, u"Hiba"_s);
    EXPECT_EQ(enter(u"9x'%_"_s), u"BEAV"_s);
    typeText(u"42400"_s);
    pressKey(Qt::Key_Down);
    pressKey(Qt::Key_Delete);
    dialogue.expect(u"Mennyiség kitöltése kötelező!"_s);
    EXPECT_EQ(pressKey(Qt::Key_Return), u"MENNY"_s);
    typeText(u"1,5"_s);
    dialogue.expect(u"A mennyiség csak egész szám lehet, legfeljebb két számjeggyel!"_s, u"Hiba"_s);
    EXPECT_EQ(pressKey(Qt::Key_Return), u"MENNY"_s);
    EXPECT_EQ(text("MENNY"), u"1,5"_s);
    typeText(u"12x"_s); // over the refused one; other keys are dropped
    EXPECT_EQ(pressKey(Qt::Key_Down), u"BeavJelleg"_s);
    pressKey(Qt::Key_Delete);
    dialogue.expect(u"Jelleg kitöltése kötelező!"_s);
    click("Felvesz");
    EXPECT_EQ(focusName(), u"BeavJelleg"_s);
    EXPECT_EQ(enter(u"C"_s), u"Felvesz"_s);
    pressKey(Qt::Key_Return);
    EXPECT_EQ(lines(), u"11041/1/V,42400/12/C"_s);
    EXPECT_EQ(texts("BeavJelleg MENNY"), u"V|1"_s);
    EXPECT_EQ(focusName(), u"BEAV"_s);

    grid->setFocus();
    grid->setCurrentCell(0, 0);
    EXPECT_EQ(label("BEAV_NEV"), u"Vizsgálat"_s);
    dialogue.expectQuestion(u"Tényleg törölni akarja?"_s, Answer::no, u"Kérdés"_s);
    pressKey(Qt::Key_Delete);
    dialogue.expectQuestion(u"Tényleg törölni akarja?"_s, Answer::yes, u"Kérdés"_s);
    pressKey(Qt::Key_Delete);
    EXPECT_EQ(lines(), u"42400/12/C"_s);
    EXPECT_EQ(label("BEAV_NEV"), u"Konzílium"_s); // the first row is the current one again
    dialogue.expectQuestion(u"Tényleg törölni akarja?"_s, Answer::yes, u"Kérdés"_s);
    click("Torol");
    dialogue.expect(u"Nincs kijelölve törlendő beavatkozás!"_s, u"Hiba"_s);
    click("Torol");
    EXPECT_EQ(lines(), QString());
}

} // namespace vandrel::test
