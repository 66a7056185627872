// A sheet is typed as a clerk types it: keys only, from the unit field to the store, and found in the tables.
#include "platform/format.h"
#include "sheet/forms/tetad_kieg1.h"
#include "sheet/sheet_field_table.h"
#include "sheet/sheet_fields.h"
#include "support/sheet_samples.h"
#include "support/sheet_screen.h"

using namespace Qt::StringLiterals;

namespace vandrel::test {

namespace {

const QString storedQuestion = u"Adatok eltárolása megtörtént!\nKíván új beteget rögzíteni?"_s;
const QString registerQuestion =
    u"Ilyen TAJ számú beteg nincs a Páciens törzsben!\nKivánja most rögzíteni?"_s;

const QString hostile = u"O'Brien %_\"; <b>x</b> & 漢 'or 1=1--"_s;

// A letter that no report can carry is left out as it is typed.
const QString taken = QString(hostile).remove(u'漢');

// From the patient's type on to the birth date of somebody who is not in the register; empty: only Enter.
void typeNewPatient() {
    for (const QString& text : {u"1"_s, hostile, u"1012"_s, QString(), u"Kő köz 3."_s, QString(),
                                u"Tóth Ilona"_s, hostile, QString(), QString()})
        enter(text);
    EXPECT_EQ(focusName(), u"F_datum"_s);
    for (const QString& text : {QString(), QString(), u"1"_s, u"19580704"_s})
        enter(text);
    EXPECT_EQ(focusName(), u"Terites"_s);
}

} // namespace

using Tetad = SheetTest;

TEST_F(Tetad, NewSheetStandsOnTheForm) {
    EXPECT_EQ(focusName(), u"Szakrend"_s);
    EXPECT_EQ(texts("Azonosito modszoveg Int_nev Int_cim ma"),
              u"A010000042||Városi <Rendelő> & Társa|6720 - Szeged|2008.04.03."_s);
    EXPECT_EQ(
        texts("Szakrend Naplo Szem_szam Allampol_rov F_datum F_ido Terites Baleset Ell_tip Tova EU_LAP"),
        u"|1||HUN|2008.04.03.|14:05|01|00|1|0|0"_s);
    EXPECT_EQ(texts("ElszNyil VizDijOsszeg Termen MENNY BeavJelleg Jav Enaplo Edatum Labor Recept"),
              u"10|0|0|1|V|0|0|    .  .  .|0|0"_s);
    EXPECT_FALSE(visible("Felh1"));
    for (QLineEdit* edit : form.findChildren<QLineEdit*>())
        if (!edit->objectName().startsWith("qt_"_L1) && !edit->objectName().startsWith("Felh"_L1)) {
            EXPECT_NE(edit->accessibleName(), QString()) << edit->objectName().toStdString();
        }
}

TEST_F(Tetad, EnterFollowsTheOrderOfEntry) {
    typeText(u"010000001"_s);
    QStringList order{focusName()};
    for (int i = 0; i < 60 && focusName() != "BEAV"_L1; ++i) {
        if (focusName() == "Anyja_neve"_L1) typeText(u"X"_s);
        if (focusName() == "Szul_dat"_L1) typeText(u"19600101"_s);
        if (focusName() == "Terites"_L1) typeText(u"0R"_s);
        if (focusName().startsWith("Diag"_L1) && focusName() != "Diag5"_L1) typeText(u"I10H0"_s);
        pressKey(Qt::Key_Return);
        order.append(focusName());
    }
    EXPECT_EQ(
        order.join(u' '),
        u"Szakrend Orvkod Igenylo BeutOrvos BeutIndok BeutaloKelte Naplo Szem_szam Azon_tipus Neve Irszam "
        "City Cim Allampol_rov Anyja_neve Leanykori_neve KgySzam KgyLe F_datum F_ido Nem Szul_dat Terites "
        "TerReszlDij Baleset Ell_tip Tova EU_LAP ElszNyil VizitDij VizDijOsszeg VizitdijFizMod Diag1 Diag2 "
        "Diag3 Diag4 Diag5 BEAV"_s);
    EXPECT_EQ(pressKey(Qt::Key_Up), u"Diag5"_s);
    pressKey(Qt::Key_Down);
    EXPECT_EQ(pressKey(Qt::Key_Down), u"MENNY"_s);
    EXPECT_EQ(pressKey(Qt::Key_Up), u"BEAV"_s);
    // Without the category "0R" there is no part fee on the way; an empty second diagnosis ends the list.
    fill({{"Terites", u"01"}});
    EXPECT_EQ(focusName(), u"Baleset"_s);
    go("Diag2");
    pressKey(Qt::Key_Delete);
    EXPECT_EQ(pressKey(Qt::Key_Return), u"BEAV"_s);
    go("Diag2");
    EXPECT_EQ(pressKey(Qt::Key_Down), u"Diag3"_s);
    go("MENNY");
    EXPECT_EQ(pressKey(Qt::Key_Tab), u"BeavJelleg"_s);
    go("VizDijOsszeg");
    EXPECT_EQ(pressKey(Qt::Key_Tab), u"Termen"_s);
    EXPECT_EQ(pressKey(Qt::Key_Return), u"VizitdijFizMod"_s);
}

TEST_F(Tetad, WholeSheetIsTypedAndStoredWithoutMouse) {
    enter(u"010000001"_s);
    EXPECT_EQ(texts("Orvkod Naplo"), u"11111|13"_s);
    enter();
    enter(u"'; drop"_s);
    enter(u"54321"_s);
    enter();
    enter(u"20080401"_s);
    enter();
    dialogue.expect(u"A TAJ számnak 9 számjegyűnek kell lennie !"_s, u"Hiba!"_s);
    enter(u"'%_<b>"_s); // told, and taken all the same
    typeNewPatient();
    enter(u"0R"_s);
    enter(u"1500"_s);
    for (int i = 0; i < 5; ++i) // accident, care, onward, EU, statement
        enter();
    enter(); // the fee code becomes "01"
    enter(u"300"_s);
    EXPECT_EQ(enter(u"01"_s), u"Diag1"_s);
    enter(u"i10h0"_s);
    EXPECT_EQ(label("Diag1_nev"), u"Magas vérnyomás"_s);
    EXPECT_EQ(enter(), u"BEAV"_s);
    enter(u"11041"_s); // adds the line at once
    EXPECT_EQ(focusName(), u"BEAV"_s);
    typeText(u"42400"_s);
    pressKey(Qt::Key_Down);
    EXPECT_EQ(enter(u"3"_s), u"BEAV"_s);
    EXPECT_EQ(pressKey(Qt::Key_E, Qt::ControlModifier), u"Labor"_s);
    enter(u"2"_s);
    for (int i = 0; i < 5; ++i)
        enter();
    EXPECT_EQ(focusName(), u"Recept"_s);
    enter(u"4"_s);
    enter();
    enter(); // the last field of the frame: back to the sheet
    EXPECT_EQ(focusName(), u"BEAV"_s);
    pressKey(Qt::Key_N, Qt::ControlModifier);
    enter(u"Első sor őű"_s);
    typeText(u"második"_s);
    pressKey(Qt::Key_Escape);
    dialogue.expectQuestion(registerQuestion, Answer::yes, u"Kérdés"_s);
    dialogue.expectQuestion(storedQuestion, Answer::yes);
    store();
    EXPECT_TRUE(dialogue.allShown());

    EXPECT_EQ(stored("select AZONOSITO||'|'||SZAKREND||'|'||ORVKOD||'|'||IGENYLO||'|'||BeutOrvos||'|'||"
                     "BeutaloKelte||'|'||NAPLO||'|'||SZEM_SZAM||'|'||PaciensId||'|'||TERITES||'|'||"
                     "TerReszlDij||'|'||VizitDij||'|'||VizDijOsszeg||'|'||VizitdijFizMod||'|'||DIAG1||'|'||"
                     "LABOR||'|'||RECEPT||'|'||F_DATUM||'|'||F_IDO||'|'||NOTE from BETEG"),
              u"A010000042|010000001|11111|'; drop|54321|2008.04.01.|13|'%_<b>|8|0R|1500.0|01|300|01|I10H0"
              "|2|4|2008.04.03.|14:05:00|Első sor őű\nmásodik"_s);
    EXPECT_EQ(stored("select group_concat(BEAV||'*'||MENNY||BeavJelleg) from EUSZOLG "
                     "where Azonosito='A010000042'"),
              u"11041*1V,42400*3V"_s);
    EXPECT_EQ(stored("select "
                     "Neve||'|'||Irszam||'|'||City||'|'||Cim||'|'||Anyja_neve||'|'||Nem||'|'||Szul_"
                     "Dat||'|'||Leanykori_neve"
                     " from Paciensek where ID=8"),
              taken + u"|1012|Budapest 12|Kő köz 3.|Tóth Ilona|1|1958.07.04.|"_s + taken);
    // The next sheet is shown as a fresh one.
    EXPECT_EQ(label("Azonosito"), u"A010000043"_s);
    EXPECT_EQ(focusName(), u"Szakrend"_s);
    EXPECT_EQ(texts("Szakrend Naplo Neve Terites"), u"010000001|14||01"_s);
    EXPECT_EQ(form.fields().NOTE, QString());
}

TEST_F(Tetad, RefusedStoreGoesToTheField) {
    dialogue.expect(u"Lakcím-Város nincs kitöltve!"_s);
    EXPECT_EQ(store(), u"Irszam"_s);
    // From inside the other data the frame makes way.
    EXPECT_EQ(pressKey(Qt::Key_E, Qt::ControlModifier), u"Labor"_s);
    dialogue.expect(u"Lakcím-Város nincs kitöltve!"_s);
    EXPECT_EQ(store(), u"Irszam"_s);
    EXPECT_FALSE(visible("egyeb_keret"));
    // A full disk leaves everything as it is, and the same key stores once there is room.
    fill({{"Irszam", u"6720"}, {"Szakrend", u"010000001"}});
    type("Szem_szam", u"123456788"_s);
    SheetFields fields = form.fields();
    fields.NOTE = QString(20'000, u'x');
    form.setFields(fields);
    go("Azon_tipus");
    stored("pragma max_page_count=1"); // the engine takes it as the file's present size
    dialogue.expect(u"tetdata.mdb: a lemez megtelt"_s, u"Hiba"_s);
    EXPECT_EQ(store(), u"Azon_tipus"_s);
    EXPECT_TRUE(form.isVisible());
    EXPECT_EQ(form.fields().Neve + form.fields().NOTE, fields.Neve + fields.NOTE);
    EXPECT_EQ(stored("select count(*) from BETEG"), u"0"_s);
    stored("pragma max_page_count=1000000");
    dialogue.expectQuestion(storedQuestion, Answer::no);
    store();
    EXPECT_EQ(stored("select AZONOSITO||length(NOTE) from BETEG"), u"A01000004220000"_s);
}

TEST_F(Tetad, LeavingKeepsTheLinesForTheNextSheet) {
    fill({{"BEAV", u"11301"}});
    go("Anyja_neve"); // empty and mandatory: no obstacle to going
    pressKey(Qt::Key_X, Qt::ControlModifier);
    EXPECT_FALSE(form.isVisible());
    open();
    EXPECT_EQ(label("Azonosito"), u"A010000042"_s);
    EXPECT_EQ(stored("select BEAV from EUSZOLG where Azonosito='A010000042'"), u"11301"_s);
    EXPECT_EQ(form.findChild<QTableWidget*>(u"EUSZOLG"_s)->item(0, 0)->text(), u"11301"_s);
    EXPECT_EQ(label("BEAV_NEV"), u"Kontrollvizsgálat"_s);
}

// The window's own button closes the form while its dictionary is open: no check runs any more.
TEST_F(Tetad, GoesWithItsDictionaryAndChecksNothing) {
    type("Diag1", u"X9"_s); // there is no such code: leaving the field would say so
    pressKey(Qt::Key_F1);
    ASSERT_TRUE(form.dictionary().isVisible());
    form.close();
    QCoreApplication::processEvents();
    EXPECT_FALSE(form.dictionary().isVisible());
    EXPECT_FALSE(form.isVisible());
    EXPECT_EQ(form.dictionary().returnMarker(), 0);
}

TEST_F(Tetad, StoredCorrectionWritesOverItsSheetWithoutAWord) {
    enter(u"010000001"_s);
    type("Szem_szam", u"123456788"_s);
    fill({{"BEAV", u"11041"}});
    dialogue.expectQuestion(storedQuestion, Answer::no);
    store();
    EXPECT_FALSE(form.isVisible());

    setUp.data().execute("update BETEG set FLOPPY=3");
    SheetFields fields = form.fields();
    fields.correction = true;
    form.setFields(fields);
    form.present();
    ASSERT_TRUE(showActive(form));
    fill({{"Jav", u"2"}});
    EXPECT_EQ(enter(u"010000002"_s), u"Edatum"_s);
    typeText(u"20080303"_s);
    type("Tova", u"7"_s);
    store();
    EXPECT_TRUE(form.isVisible());
    EXPECT_EQ(focusName(), u"Tova"_s);
    EXPECT_EQ(
        stored("select count(*)||'|'||JAV||'|'||ER_AZON||'|'||EDATUM||'|'||TOVA||'|'||FLOPPY from BETEG"),
        u"1|2|010000002|2008.03.03.|7|0"_s);
}

// A field that has the focus at the store is checked like one that was left.
TEST_F(Tetad, StoreChecksTheFieldThatHasTheFocus) {
    enter(u"010000001"_s);
    type("Szem_szam", u"123456788"_s);
    type("Diag1", u"QQQQQ"_s);
    dialogue.expect(u"Nincs ilyen 'BNO kód'!"_s, u"Hiba"_s);
    EXPECT_EQ(store(), u"Diag1"_s);
    EXPECT_EQ(stored("select count(*) from BETEG"), u"0"_s);
    type("Cim", u"abc"_s);
    pressKey(Qt::Key_K, Qt::ControlModifier); // not there yet, and no editing key either
    EXPECT_EQ(text("Cim"), u"abc"_s);
}

TEST_F(Tetad, StoringChangesNothingThatWasTyped) {
    SheetFields sheet = goodSheet(setUp.workstation);
    sheet.Orvkod = u"22222"_s;
    sheet.Naplo = u"77"_s;
    form.setFields(sheet);
    form.present();
    EXPECT_EQ(focusName(), u"Szakrend"_s); // unchanged: doctor and journal number stay as they are
    dialogue.expectQuestion(storedQuestion, Answer::yes);
    store();
    EXPECT_EQ(stored("select ORVKOD||'|'||NAPLO from BETEG"), u"22222|77"_s);

    form.setFields(goodSheet(setUp.workstation));
    go("Terites");
    pressKey(Qt::Key_Delete);
    dialogue.expect(u"Térítési kategória nincs kitöltve!"_s);
    EXPECT_EQ(store(), u"Terites"_s);
    EXPECT_EQ(text("Terites"), QString()); // refused, not replaced
    typeText(u"02"_s);

    type("BEAV", u"11041"_s);
    dialogue.expectQuestion(
        u"A beírt beavatkozás (11041) nincs felvéve az adatlapra.\nTárolja az adatlapot nélküle?"_s,
        Answer::no, u"Kérdés"_s);
    EXPECT_EQ(store(), u"BEAV"_s);
    pressKey(Qt::Key_Delete);
    type("Naplo", u"1,,2"_s);
    go("Neve");
    dialogue.expect(u"A naplósorszám nem szám: 1,,2"_s, u"Hiba"_s);
    EXPECT_EQ(store(), u"Naplo"_s);
    EXPECT_EQ(stored("select count(*) from BETEG"), u"1"_s);
}

// As the program runs it: it opens with its content, is deleted when it closes, and the opener waits.
TEST(TetadOpener, GivesTheOpenerBackAndGoes) {
    SheetScreen screen;
    QWidget opener;
    opener.show();
    auto* form = new tetad(screen.setUp.workstation, &opener);
    form->setAttribute(Qt::WA_DeleteOnClose);
    const QPointer<QWidget> there = form;
    form->Uj();
    ASSERT_TRUE(showActive(*form));
    EXPECT_FALSE(opener.isEnabled());
    EXPECT_EQ(focusName(), u"Szakrend"_s);
    form->findChild<QLineEdit*>(u"Anyja_neve"_s)->setFocus();
    pressKey(Qt::Key_X, Qt::ControlModifier);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_EQ(there, nullptr);
    EXPECT_TRUE(opener.isEnabled());
}

// What a stored sheet holds goes over the form and back without a change, over-long and odd as it may be.
TEST_F(Tetad, EveryFieldGivesBackWhatItWasGiven) {
    SheetFields given = form.fields();
    given.correction = true;
    for (const FieldRow<SheetKey>& field : sheetFieldTable()) {
        QString& value = valueOf(given, field.key);
        if (value.contains(u'.') || value.contains(u':')) continue; // masked: dates and the time
        value =
            u"O'Brien %_\"; <b>x</b>\n& 漢 "_s + QString::fromLatin1(field.field.name) + QString(2000, u'ű');
    }
    given.Terites = u"0R"_s;
    form.setFields(given);
    SheetFields back = form.fields();
    for (const FieldRow<SheetKey>& field : sheetFieldTable())
        EXPECT_EQ(valueOf(back, field.key), valueOf(given, field.key)) << field.field.name;
    EXPECT_TRUE(back.correction);
    // A correction keeps a unit that is no longer in the dictionary and follows no unit.
    given.Szakrend = u"999999999"_s;
    given.Naplo = u"5"_s;
    form.setFields(given);
    form.present();
    EXPECT_EQ(label("modszoveg"), u"Javítás"_s);
    EXPECT_EQ(focusName(), u"Szakrend"_s);
    enter();
    EXPECT_EQ(texts("Szakrend Naplo"), u"999999999|5"_s);
}

} // namespace vandrel::test
