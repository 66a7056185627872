// The lists behind F1: the pick-list with its lines, the searchable dictionaries, the month picker.
#include "sheet/forms/tetad_kieg1.h"
#include "support/sheet_screen.h"

#include <QListView>
#include <QRadioButton>
#include <QTableView>

using namespace Qt::StringLiterals;

namespace vandrel::test {

namespace {

QString currentLine(SheetScreen& screen) {
    return screen.form.findChild<QListView*>(u"lista"_s)->currentIndex().data().toString();
}

struct DictionaryScreen : SheetScreen {
    tetad_kieg1& list() { return form.dictionary(); }
    QTableView* grid() { return list().findChild<QTableView*>(u"szotar"_s); }
    QString currentCode() { return grid()->currentIndex().siblingAtColumn(0).data().toString(); }
    void help(const char* name) {
        go(name);
        pressKey(Qt::Key_F1);
        ASSERT_TRUE(list().isVisible());
        ASSERT_TRUE(showActive(list()));
        QCoreApplication::processEvents();
        ASSERT_EQ(focusName(), u"keres"_s);
    }
    // The list is closed and the sheet is in front again.
    void back() {
        EXPECT_FALSE(list().isVisible());
        EXPECT_TRUE(form.isEnabled());
        ASSERT_TRUE(showActive(form));
        QCoreApplication::processEvents();
    }
};

} // namespace

TEST(TetadPickList, EnterTakesTheCodeAndEscapeTakesNothing) {
    SheetScreen screen;
    screen.open();
    screen.go("Ell_tip");
    EXPECT_EQ(pressKey(Qt::Key_F1), u"lista"_s);
    EXPECT_TRUE(currentLine(screen).startsWith("1: "_L1));
    pressKey(Qt::Key_Down);
    EXPECT_EQ(pressKey(Qt::Key_Return), u"Ell_tip"_s);
    EXPECT_EQ(screen.text("Ell_tip"), u"2"_s);
    EXPECT_FALSE(screen.visible("lista_keret"));
    pressKey(Qt::Key_F1);
    typeText(u"5"_s); // jumps
    EXPECT_TRUE(currentLine(screen).startsWith("5: "_L1));
    screen.store(); // no store while a list is open
    EXPECT_EQ(pressKey(Qt::Key_Escape), u"Ell_tip"_s);
    EXPECT_EQ(screen.text("Ell_tip"), u"2"_s);
    // A wrong code is no trouble while its list is open; it is one when the field is left at last.
    screen.type("Szakrend", u"77"_s);
    EXPECT_EQ(pressKey(Qt::Key_F1), u"lista"_s);
    EXPECT_EQ(currentLine(screen), u"010000001 - Belgyógyászat"_s);
    pressKey(Qt::Key_Escape);
    screen.dialogue.expect(u"Ilyen 'Szakrendelőkód' nincs!Írjon be másikat!"_s, u"Hiba"_s);
    EXPECT_EQ(pressKey(Qt::Key_Return), u"Szakrend"_s);
    pressKey(Qt::Key_F1);
    pressKey(Qt::Key_Down);
    pressKey(Qt::Key_Return);
    EXPECT_EQ(screen.text("Szakrend"), u"010000002"_s);
}

TEST(TetadPickList, AccidentListOffersWhatTheCheckRefuses) {
    SheetScreen screen;
    screen.open();
    screen.go("Baleset");
    pressKey(Qt::Key_F1);
    pressKey(Qt::Key_Down);
    pressKey(Qt::Key_Return);
    EXPECT_EQ(screen.text("Baleset"), u"01"_s);
    screen.dialogue.expect(u"Nincs ilyen típusú 'Baleset'!"_s, u"Hiba"_s);
    EXPECT_EQ(pressKey(Qt::Key_Return), u"Baleset"_s);
}

TEST(TetadPickList, PatientFromTheRegisterFillsTheSheet) {
    SheetScreen screen;
    screen.open();
    screen.go("Szem_szam");
    pressKey(Qt::Key_F1);
    EXPECT_EQ(currentLine(screen), u"123456788 - Őri Ágnes: 6720 - Szeged, Fő u. 1."_s);
    typeText(u"129"_s);
    EXPECT_EQ(currentLine(screen), u"129999990 - O'Brien <b>Pál</b>: 1011 - Budapest, Vár 2."_s);
    pressKey(Qt::Key_Return);
    EXPECT_EQ(screen.text("Szem_szam"), u"129999990"_s);
    EXPECT_EQ(screen.text("Neve"), u"O'Brien <b>Pál</b>"_s);
    EXPECT_EQ(focusName(), u"Szem_szam"_s);
}

TEST(TetadPickList, MonthPickerWritesTheDate) {
    SheetScreen screen;
    screen.open();
    screen.go("F_datum");
    pressKey(Qt::Key_F1);
    EXPECT_TRUE(screen.visible("naptar_keret"));
    pressKey(Qt::Key_Left);
    pressKey(Qt::Key_Return);
    EXPECT_EQ(screen.text("F_datum"), u"2008.04.02."_s);
    EXPECT_EQ(focusName(), u"F_datum"_s);
    screen.go("Szul_dat"); // no date yet: starts today
    pressKey(Qt::Key_F1);
    pressKey(Qt::Key_PageUp);
    pressKey(Qt::Key_Escape);
    EXPECT_EQ(screen.text("Szul_dat"), u"    .  .  ."_s);
    EXPECT_EQ(focusName(), u"Szul_dat"_s);
}

TEST(TetadDictionary, SearchByCodeAndByName) {
    DictionaryScreen screen;
    screen.open();
    screen.help("Diag3");
    typeText(u"j0"_s);
    EXPECT_EQ(screen.currentCode(), u"J0390"_s);
    typeText(u"39012"_s); // five characters, no more
    auto* search = screen.list().findChild<QLineEdit*>(u"keres"_s);
    EXPECT_EQ(search->text(), u"j0390"_s);
    pressKey(Qt::Key_F2); // by name
    QCoreApplication::processEvents();
    EXPECT_EQ(focusName(), u"keres"_s);
    search->clear();
    typeText(u"BETEGSÉG"_s);
    EXPECT_EQ(screen.currentCode(), u"E1190"_s);
    auto* next = screen.list().findChild<QPushButton*>(u"Kovetkezo"_s);
    pressKey(Qt::Key_F3); // the same as a click
    EXPECT_EQ(screen.currentCode(), u"E1100"_s);
    const QString question = u"Nincs több találat, kéri az első találatot?"_s;
    screen.dialogue.expectQuestion(question, Answer::no);
    next->click();
    EXPECT_EQ(screen.currentCode(), u"E1100"_s);
    screen.dialogue.expectQuestion(question, Answer::yes);
    next->click();
    EXPECT_EQ(screen.currentCode(), u"E1190"_s);
    search->clear();
    typeText(u"cukor*szöv"_s);
    EXPECT_EQ(screen.currentCode(), u"E1100"_s);
    pressKey(Qt::Key_Return);
    screen.back();
    EXPECT_EQ(screen.text("Diag3"), u"E1100"_s);
    EXPECT_EQ(screen.label("Diag3_nev"), u"Cukorbetegség szövődménnyel"_s);
    EXPECT_EQ(focusName(), u"Diag3"_s);
}

TEST(TetadDictionary, EscapeInTheGrid) {
    DictionaryScreen screen;
    screen.open();
    screen.type("Diag1", u"I1"_s); // unfinished: no check while the list is open
    screen.help("Diag1");
    pressKey(Qt::Key_Escape); // in the search field: nothing changes
    screen.back();
    EXPECT_EQ(screen.text("Diag1"), u"I1"_s);
    screen.help("Diag1");
    screen.list().findChild<QPushButton*>(u"Kovetkezo"_s)->setFocus();
    pressKey(Qt::Key_Escape); // nor on a button
    screen.back();
    EXPECT_EQ(screen.text("Diag1"), u"I1"_s);
    screen.help("Diag1");
    pressKey(Qt::Key_Tab);
    screen.grid()->setFocus();
    pressKey(Qt::Key_Escape);
    screen.back();
    EXPECT_EQ(screen.text("Diag1"), QString());
    EXPECT_EQ(focusName(), u"Diag1"_s);
    screen.help("BEAV");
    screen.grid()->setFocus();
    pressKey(Qt::Key_Escape);
    screen.back();
    EXPECT_EQ(focusName(), u"MENNY"_s);
    screen.help("Allampol_rov");
    screen.grid()->setFocus();
    pressKey(Qt::Key_Escape);
    screen.back();
    EXPECT_EQ(focusName(), u"Allampol_rov"_s);
    EXPECT_EQ(screen.text("Allampol_rov"), u"HUN"_s);
}

TEST(TetadDictionary, ProcedureAndCountryAreTakenWithTheirNames) {
    DictionaryScreen screen;
    screen.open();
    screen.help("BEAV");
    enter(u"424"_s);
    screen.back();
    EXPECT_EQ(screen.text("BEAV"), u"42400"_s);
    EXPECT_EQ(screen.label("BEAV_NEV"), u"Konzílium"_s);
    EXPECT_EQ(focusName(), u"BEAV"_s);
    screen.help("Allampol_rov");
    enter(u"deu"_s);
    screen.back();
    EXPECT_EQ(screen.text("Allampol_rov"), u"DEU"_s);
    EXPECT_EQ(screen.field("Allampol_rov")->toolTip(), u"Németország"_s);
    EXPECT_EQ(focusName(), u"Allampol_rov"_s);
    // The marker is gone with the form: a new sheet begins at its first field.
    screen.form.close();
    screen.open();
    EXPECT_EQ(focusName(), u"Szakrend"_s);
}

TEST(TetadDictionary, MissingDictionaryIsToldAndTheSheetStays) {
    SheetScreen screen;
    screen.open();
    screen.setUp.workstation.files.close(DataFile::diagnos);
    QFile::remove(screen.setUp.path(u"diagnos.mdb"_s));
    screen.go("Diag1");
    screen.dialogue.expect(u"Nem található a diagnos.mdb állomány!"_s, u"Hiba"_s);
    EXPECT_EQ(pressKey(Qt::Key_F1), u"Diag1"_s);
    screen.dialogue.expect(u"Nem található a diagnos.mdb állomány!"_s, u"Hiba"_s);
    typeText(u"I10"_s); // told once, not at every key
    EXPECT_EQ(screen.text("Diag1"), u"I10"_s);
}

} // namespace vandrel::test
