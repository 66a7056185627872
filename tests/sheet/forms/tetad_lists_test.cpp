// The lists at F1: the pick-list with its lines, the searchable dictionaries, the month picker.
#include "sheet/forms/tetad_kieg1.h"
#include "support/sheet_screen.h"

#include <QListView>
#include <QRadioButton>
#include <QTableView>

using namespace Qt::StringLiterals;

namespace vandrel::test {

namespace {

struct TetadDictionary : SheetTest {
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

using TetadPickList = SheetTest;

TEST_F(TetadPickList, EnterTakesTheCodeAndEscapeTakesNothing) {
    go("Ell_tip");
    EXPECT_EQ(pressKey(Qt::Key_F1), u"lista"_s);
    EXPECT_TRUE(currentLine().startsWith("1: "_L1));
    pressKey(Qt::Key_Down);
    EXPECT_EQ(pressKey(Qt::Key_Return), u"Ell_tip"_s);
    EXPECT_EQ(text("Ell_tip"), u"2"_s);
    EXPECT_FALSE(visible("lista_keret"));
    pressKey(Qt::Key_F1);
    typeText(u"5"_s); // jumps
    EXPECT_TRUE(currentLine().startsWith("5: "_L1));
    store(); // no store while a list is open
    EXPECT_EQ(pressKey(Qt::Key_Escape), u"Ell_tip"_s);
    EXPECT_EQ(text("Ell_tip"), u"2"_s);
    // A wrong code is no trouble while its list is open; it is one when the field is left at last.
    type("Szakrend", u"77"_s);
    EXPECT_EQ(pressKey(Qt::Key_F1), u"lista"_s);
    EXPECT_EQ(currentLine(), u"010000001 - Belgyógyászat"_s);
    pressKey(Qt::Key_Escape);
    dialogue.expect(u"Ilyen 'Szakrendelőkód' nincs!Írjon be másikat!"_s, u"Hiba"_s);
    EXPECT_EQ(pressKey(Qt::Key_Return), u"Szakrend"_s);
    pressKey(Qt::Key_F1);
    pressKey(Qt::Key_Down);
    pressKey(Qt::Key_Return);
    EXPECT_EQ(text("Szakrend"), u"010000002"_s);
}

TEST_F(TetadPickList, PatientFromTheRegisterFillsTheSheet) {
    go("Szem_szam");
    pressKey(Qt::Key_F1);
    EXPECT_EQ(currentLine(), u"123456788 - Őri Ágnes: 6720 - Szeged, Fő u. 1."_s);
    typeText(u"129"_s);
    EXPECT_EQ(currentLine(), u"129999990 - O'Brien <b>Pál</b>: 1011 - Budapest, Vár 2."_s);
    pressKey(Qt::Key_Return);
    EXPECT_EQ(texts("Szem_szam Neve"), u"129999990|O'Brien <b>Pál</b>"_s);
    EXPECT_EQ(focusName(), u"Szem_szam"_s);
}

TEST_F(TetadPickList, MonthPickerWritesTheDate) {
    go("F_datum");
    pressKey(Qt::Key_F1);
    EXPECT_TRUE(visible("naptar_keret"));
    pressKey(Qt::Key_Left);
    pressKey(Qt::Key_Return);
    EXPECT_EQ(text("F_datum"), u"2008.04.02."_s);
    EXPECT_EQ(focusName(), u"F_datum"_s);
    go("Szul_dat"); // no date yet: starts today
    pressKey(Qt::Key_F1);
    pressKey(Qt::Key_PageUp);
    pressKey(Qt::Key_Escape);
    EXPECT_EQ(text("Szul_dat"), u"    .  .  ."_s);
    EXPECT_EQ(focusName(), u"Szul_dat"_s);
}

TEST_F(TetadDictionary, SearchByCodeAndByName) {
    help("Diag3");
    typeText(u"j0"_s);
    EXPECT_EQ(currentCode(), u"J0390"_s);
    typeText(u"39012"_s); // five characters, no more
    auto* search = list().findChild<QLineEdit*>(u"keres"_s);
    EXPECT_EQ(search->text(), u"j0390"_s);
    pressKey(Qt::Key_F2); // by name
    QCoreApplication::processEvents();
    EXPECT_EQ(focusName(), u"keres"_s);
    search->clear();
    typeText(u"BETEGSÉG"_s);
    EXPECT_EQ(currentCode(), u"E1190"_s);
    auto* next = list().findChild<QPushButton*>(u"Kovetkezo"_s);
    pressKey(Qt::Key_F3); // the same as a click
    EXPECT_EQ(currentCode(), u"E1100"_s);
    const QString question = u"Nincs több találat, kéri az első találatot?"_s;
    dialogue.expectQuestion(question, Answer::no);
    next->click();
    EXPECT_EQ(currentCode(), u"E1100"_s);
    dialogue.expectQuestion(question, Answer::yes);
    next->click();
    EXPECT_EQ(currentCode(), u"E1190"_s);
    search->clear();
    typeText(u"cukor*szöv"_s);
    EXPECT_EQ(currentCode(), u"E1100"_s);
    pressKey(Qt::Key_Return);
    back();
    EXPECT_EQ(texts("Diag3 Diag3_nev"), u"E1100|Cukorbetegség szövődménnyel"_s);
    EXPECT_EQ(focusName(), u"Diag3"_s);
}

TEST_F(TetadDictionary, OnlyEscapeInTheGridHasEffects) {
    type("Diag1", u"I1"_s); // unfinished: no check while the list is open
    const struct {
        const char* field;
        const char* escapedIn;
        const char* focusAfter;
        const char16_t* after;
    } cases[] = {
        {"Diag1", "keres", "Diag1", u"I1"},
        {"Diag1", "Kovetkezo", "Diag1", u"I1"},
        {"Diag1", "szotar", "Diag1", u""},
        {"BEAV", "szotar", "MENNY", u""},
        {"Allampol_rov", "szotar", "Allampol_rov", u"HUN"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(std::string(c.field) + " in " + c.escapedIn);
        help(c.field);
        list().findChild<QWidget*>(QString::fromLatin1(c.escapedIn))->setFocus();
        pressKey(Qt::Key_Escape);
        back();
        EXPECT_EQ(focusName(), QString::fromLatin1(c.focusAfter));
        EXPECT_EQ(text(c.field), QString::fromUtf16(c.after));
    }
}

TEST_F(TetadDictionary, ProcedureAndCountryAreTakenWithTheirNames) {
    help("BEAV");
    enter(u"424"_s);
    back();
    EXPECT_EQ(texts("BEAV BEAV_NEV"), u"42400|Konzílium"_s);
    EXPECT_EQ(focusName(), u"BEAV"_s);
    help("Allampol_rov");
    enter(u"deu"_s);
    back();
    EXPECT_EQ(text("Allampol_rov"), u"DEU"_s);
    EXPECT_EQ(field("Allampol_rov")->toolTip(), u"Németország"_s);
    EXPECT_EQ(focusName(), u"Allampol_rov"_s);
    // The marker is gone with the form: a new sheet begins at its first field.
    form.close();
    open();
    EXPECT_EQ(focusName(), u"Szakrend"_s);
}

TEST_F(TetadDictionary, MissingDictionaryIsToldAndTheSheetStays) {
    setUp.workstation.files.close(DataFile::diagnos);
    QFile::remove(setUp.path(u"diagnos.mdb"_s));
    go("Diag1");
    dialogue.expect(u"Nem található a diagnos.mdb állomány!"_s, u"Hiba"_s);
    EXPECT_EQ(pressKey(Qt::Key_F1), u"Diag1"_s);
    dialogue.expect(u"Nem található a diagnos.mdb állomány!"_s, u"Hiba"_s);
    typeText(u"I10"_s); // told once, not at every key
    EXPECT_EQ(text("Diag1"), u"I10"_s);
}

} // namespace vandrel::test
