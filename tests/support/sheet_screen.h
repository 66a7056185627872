// The sheet's screen on a workstation of its own with small dictionaries, for tests that type into it.
#pragma once

#include "sheet/forms/tetad.h"
#include "support/keyboard.h"
#include "support/test_workstation.h"

#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QPushButton>

namespace vandrel::test {

using namespace Qt::StringLiterals;

inline bool showActive(QWidget& window) {
    QApplication::setActiveWindow(&window);
    return QTest::qWaitForWindowActive(&window);
}

struct SheetScreen {
    SheetScreen() {
        setUp.data().execute("insert or replace into Gepazonosito (rowid, Gepazon) values (1, 'A01')");
        setUp.data().executeScript(
            "delete from intezet; insert into intezet (Int_nev, irsz, City) values"
            " ('Városi <Rendelő> & Társa', '6720', 'Szeged');"
            "delete from AZONOSIT; insert into AZONOSIT (END_AZON, Tp_naplo) values ('A010000041', 0);"
            "delete from Utolsok; insert into Utolsok (UTPaciens) values (7);"
            "insert into [DEFAULT] (SZAKREND, ORVKOD, NAPLO, TN) values ('010000001', '11111', 12, 0);"
            "insert into Paciensek (ID, TAJ, Azon_Tipus, Nem, Szul_Dat, Neve, Irszam, City, Cim, Anyja_neve,"
            " Leanykori_neve, Allampol_rov, KgySzam, KgyLe) values"
            " (1, '123456788', '1', '2', '1960.02.03.', 'Őri Ágnes', '6720', 'Szeged', 'Fő u. 1.',"
            " 'Kiss Mária', 'Nagy Ágnes', 'HUN', '77', '____.__.__.'),"
            " (2, '129999990', '1', '1', '1970.05.06.', 'O''Brien <b>Pál</b>', '1011', 'Budapest', 'Vár 2.',"
            " 'Kovács Éva', '', 'HUN', '', '2009.01.31.');");
        setUp.dictionaries().executeScript(
            "insert into SZAKREND (REND_KOD, REND_NEV, SZORZO) values ('010000001', 'Belgyógyászat', 1.5),"
            " ('010000002', 'Sebészet', 1);"
            "insert into ORVOSOK (ORVKOD, NEV) values ('11111', 'Dr. Első'), ('22222', 'Dr. Második');"
            "insert into IRSZ (IRSZ, NEV) values ('6720', 'Szeged'), ('1011', 'Budapest'), ('1012',"
            " 'Budapest 12');"
            "insert into ALLAMPOL (ORSZAG, ROV, EUKOD) values ('Magyarország', 'HUN', 'H'),"
            " ('Ausztria', 'AUT', 'A'), ('Németország', 'DEU', 'D');"
            "insert into FUNKCIO (FUNKCIO, BEAVKOD) values ('F2 - 113', '11041');");
        setUp.workstation.files[DataFile::beav].executeScript(
            "insert into BEAV (BEAV_KOD, BEAV_NEV, NEMET_PONT) values ('11041', 'Vizsgálat', 540),"
            " ('42400', 'Konzílium', 300), ('11301', 'Kontrollvizsgálat', 250);");
        setUp.workstation.files[DataFile::diagnos].executeScript(
            "insert into DIAGNOS (D_KOD, D_NEV) values ('I10H0', 'Magas vérnyomás'), ('J0390', "
            "'Mandulagyulladás'),"
            " ('E1190', 'Cukorbetegség'), ('E1100', 'Cukorbetegség szövődménnyel');");
        setUp.workstation.setup.setValue(u"ADATLAP_DEF"_s, u"BEAV_TIP"_s, u"V"_s);
    }

    // A new sheet on the screen, with the focus in its first field.
    void open() {
        form.Uj();
        ASSERT_TRUE(showActive(form));
        QCoreApplication::processEvents();
    }
    QLineEdit* field(const char* name) { return form.findChild<QLineEdit*>(QString::fromLatin1(name)); }
    QString text(const char* name) {
        QLineEdit* edit = field(name);
        return edit->inputMask().isEmpty() ? edit->text() : edit->displayText();
    }
    // Of several fields and labels, a '|' between two.
    QString texts(const char* names) {
        QStringList result;
        for (const QString& name : QString::fromLatin1(names).split(u' ')) {
            const std::string latin = name.toStdString();
            result << (field(latin.c_str()) != nullptr ? text(latin.c_str()) : label(latin.c_str()));
        }
        return result.join(u'|');
    }
    // One value of the data file.
    QString stored(const std::string& sql) { return firstText(setUp.data(), sql); }
    // Field by field: the focus, then the text and Enter.
    void fill(std::initializer_list<std::pair<const char*, const char16_t*>> values) {
        for (const auto& [name, value] : values) {
            go(name);
            enter(QString::fromUtf16(value));
        }
    }
    void click(const char* button) {
        form.findChild<QPushButton*>(QString::fromLatin1(button))->click();
        QCoreApplication::processEvents();
    }
    // Of the pick-list.
    QString currentLine() { return form.findChild<QListView*>(u"lista"_s)->currentIndex().data().toString(); }
    QString store() { return pressKey(Qt::Key_W, Qt::ControlModifier); }
    // Types into a field and stays there.
    void type(const char* name, const QString& text) {
        go(name);
        typeText(text);
    }
    void go(const char* name) {
        field(name)->setFocus(Qt::OtherFocusReason);
        field(name)->selectAll();
        QCoreApplication::processEvents();
    }
    QString label(const char* name) { return form.findChild<QLabel*>(QString::fromLatin1(name))->text(); }
    bool visible(const char* name) {
        return form.findChild<QWidget*>(QString::fromLatin1(name))->isVisible();
    }

    TestWorkstation setUp;
    ExpectedDialogue& dialogue = setUp.dialogue;
    tetad form{setUp.workstation, nullptr};
};

// A test that begins on a new sheet.
class SheetTest : public testing::Test, protected SheetScreen {
  protected:
    void SetUp() override { open(); }
};

} // namespace vandrel::test
