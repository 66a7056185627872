// Institution, workstation label, status note and the small windows, typed into with real keys.
#include "foundation/forms/field_chain.h"
#include "foundation/forms/frmAbout.h"
#include "foundation/forms/nemform.h"
#include "settings/forms/gepazonform.h"
#include "settings/forms/intad.h"
#include "settings/forms/kornyform.h"
#include "support/keyboard.h"
#include "support/test_workstation.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTest>

using namespace Qt::StringLiterals;

namespace vandrel::test {

namespace {

void open(WorkForm& form) {
    form.open();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&form));
    QCoreApplication::processEvents();
}

} // namespace

TEST(IntadForm, TypedByKeyboardAloneAndStored) {
    TestWorkstation test;
    test.dictionaries().execute("insert into IRSZ (IRSZ, NEV) values ('9700', 'Szombathely')");
    QWidget opener;
    intad form(test.workstation, &opener);
    open(form);
    auto* status = form.findChild<QLabel*>(u"statusz"_s);
    const std::pair<const char*, const char*> fields[] = {{"Int_nev", "Őrségi rendelő"},
                                                          {"Gyogyi_kod", "123"},
                                                          {"Orv_kod", "54321"},
                                                          {"Szakrend_kod", "123456789"},
                                                          {"irsz", "97"},
                                                          {"City", ""},
                                                          {"cim", "Fő tér 1."},
                                                          {"Bankszamla", "111111112222222233333333"},
                                                          {"Adoig_szam", "12345678142"},
                                                          {"NBK_KOD", "N123"},
                                                          {"Login", "név"},
                                                          {"Password", "jelszó"}};
    for (const auto& [name, text] : fields) {
        EXPECT_EQ(focusName(), QLatin1StringView(name));
        EXPECT_FALSE(QApplication::focusWidget()->accessibleName().isEmpty());
        enter(QString::fromUtf8(text));
    }
    EXPECT_EQ(form.findChild<QLineEdit*>(u"City"_s)->text(), u"Szombathely"_s);
    EXPECT_EQ(focusName(), u"Tarol"_s);

    // Three characters of the GYÓGYINFOK code: nothing is stored, and nothing is said.
    pressKey(Qt::Key_Return);
    EXPECT_EQ(status->text(), QString());
    EXPECT_EQ(focusName(), u"Gyogyi_kod"_s);
    EXPECT_EQ(firstText(test.data(), "select count(*) from intezet"), u"0"_s);
    typeText(u"1234"_s);
    auto* keep = form.findChild<QPushButton*>(u"Tarol"_s);
    keep->setFocus();
    pressKey(Qt::Key_Return);
    EXPECT_EQ(status->text(), u" Adatok tárolása megtörtént!"_s);
    EXPECT_EQ(firstText(test.data(),
                        "select Int_nev||'|'||Gyogyi_kod||'|'||City||'|'||Bankszamla||'|'||Adoig_szam"
                        " from intezet"),
              u"Őrségi rendelő|1234|Szombathely|11111111-22222222-33333333|12345678-1-42"_s);
    EXPECT_EQ(test.workstation.setup.value(u"KJELO"_s, u"Password"_s), u"jelszó"_s);

    // A check with a box, and one in the status line.
    auto* doctor = form.findChild<QLineEdit*>(u"Orv_kod"_s);
    doctor->setText(u"12"_s);
    test.dialogue.expect(u"Hiba: az ellátó orvos kódja 5 jegyű!"_s, u"Hiba"_s);
    QTest::mouseClick(keep, Qt::LeftButton);
    EXPECT_EQ(focusName(), u"Orv_kod"_s);
    EXPECT_EQ(status->text(), QString());
    form.findChild<QLineEdit*>(u"City"_s)->clear();
    QTest::mouseClick(keep, Qt::LeftButton);
    EXPECT_EQ(status->text(), u" Hiba :Az intézet neve mező üresen maradt!"_s);
    EXPECT_EQ(focusName(), u"City"_s);

    // An emptied postal code empties the town.
    form.findChild<QLineEdit*>(u"City"_s)->setText(u"Pécs"_s);
    SelectAll(form.findChild<QLineEdit*>(u"irsz"_s));
    pressKey(Qt::Key_Backspace);
    EXPECT_EQ(form.findChild<QLineEdit*>(u"City"_s)->text(), QString());

    EXPECT_FALSE(opener.isEnabled());
    pressKey(Qt::Key_Escape);
    EXPECT_FALSE(form.isVisible());
    EXPECT_TRUE(opener.isEnabled());
}

// The login is in a file of its own: what was not stored is not called stored.
TEST(IntadForm, SaysWhenTheLoginCouldNotBeStored) {
    TestWorkstation test;
    test.data().execute("insert into intezet (Int_nev, Gyogyi_kod, Orv_kod, Szakrend_kod, City, NBK_KOD)"
                        " values ('Rendelő', '1234', '54321', '123456789', 'Pécs', 'N123')");
    QFile::remove(test.path(u"setup.ini"_s));
    ASSERT_TRUE(QDir().mkdir(test.path(u"setup.ini"_s))); // no file can take its place
    intad form(test.workstation, nullptr);
    open(form);
    form.findChild<QLineEdit*>(u"Int_nev"_s)->setText(u"Új név"_s);
    test.dialogue.expect(u"Az intézet adatainak tárolása megtörtént, de a bejelentkező adatoké nem: "
                         "Az állomány nem írható: "_s +
                             test.path(u"setup.ini"_s),
                         u"Hiba"_s);
    QTest::mouseClick(form.findChild<QPushButton*>(u"Tarol"_s), Qt::LeftButton);
    EXPECT_EQ(form.findChild<QLabel*>(u"statusz"_s)->text(),
              u" Hiba: Az on-line bejelentkező adatok tárolása nem sikerült!"_s);
    EXPECT_EQ(firstText(test.data(), "select Int_nev from intezet"), u"Új név"_s);
}

TEST(GepazonForm, StoresThreeCharactersAndCloses) {
    TestWorkstation test;
    QWidget opener;
    gepazonform form(test.workstation, &opener);
    open(form);
    EXPECT_EQ(focusName(), u"Gepazon"_s);
    pressKey(Qt::Key_Return);
    test.dialogue.expect(u"Nem maradhat üresen a gépazonosító mező!"_s, u"Figyelmeztetés"_s);
    pressKey(Qt::Key_Return);
    EXPECT_TRUE(form.isVisible());
    EXPECT_EQ(focusName(), u"Gepazon"_s);
    enter(u"R0123"_s);
    pressKey(Qt::Key_Return);
    EXPECT_FALSE(form.isVisible());
    EXPECT_TRUE(opener.isEnabled());
    EXPECT_EQ(firstText(test.data(), "select Gepazon from Gepazonosito"), u"R01"_s);
}

TEST(NemForm, DisablesItsCallerAndClosesOnlyWithItsButton) {
    TestWorkstation test;
    WorkForm caller(test.workstation, nullptr);
    open(caller);
    nemform note;
    StatusNote& port = note;
    auto* text = note.findChild<QLabel*>(u"szoveg"_s);
    auto* button = note.findChild<QPushButton*>(u"OK"_s);

    port.showNote(u"Kiírás: <b>1</b>"_s, false);
    ASSERT_TRUE(QTest::qWaitForWindowActive(&note));
    EXPECT_EQ(note.windowTitle(), u"Figyelmeztetés"_s);
    EXPECT_EQ(text->text(), u"Kiírás: <b>1</b>"_s);
    EXPECT_EQ(text->textFormat(), Qt::PlainText);
    EXPECT_FALSE(caller.isEnabled());
    for (const Qt::Key key : {Qt::Key_Escape, Qt::Key_Return})
        QTest::keyClick(&note, key);
    note.close();
    QTest::mouseClick(button, Qt::LeftButton);
    EXPECT_TRUE(note.isVisible());

    for (const Qt::Key key : {Qt::Key_Escape, Qt::Key_Return}) {
        port.showNote(u"Kész"_s, true);
        ASSERT_TRUE(QTest::qWaitForWindowActive(&note));
        EXPECT_FALSE(caller.isEnabled());
        pressKey(key);
        EXPECT_FALSE(note.isVisible());
        EXPECT_TRUE(caller.isEnabled());
        ASSERT_TRUE(QTest::qWaitForWindowActive(&caller));
    }

    note.showFor(&caller, u"A kódszótár nem módosítható!"_s);
    EXPECT_EQ(text->text(), u"A kódszótár nem módosítható!"_s);
    EXPECT_EQ(text->accessibleName(), u"Figyelmeztetés: A kódszótár nem módosítható!"_s);
    QTest::mouseClick(button, Qt::LeftButton);
    EXPECT_TRUE(caller.isEnabled());
}

TEST(SmallWindows, EnvironmentAndAboutBox) {
    TestWorkstation test;
    kornyform environment(test.workstation, nullptr);
    open(environment);
    EXPECT_EQ(environment.windowTitle(), u"Környezet"_s);
    EXPECT_EQ(environment.findChild<QLabel*>(u"datum"_s)->text(), u"2008.04.03."_s);
    EXPECT_EQ(environment.findChild<QLabel*>(u"ido"_s)->text(), u"14:05:09"_s);
    pressKey(Qt::Key_Escape);
    EXPECT_FALSE(environment.isVisible());

    QWidget opener;
    frmAbout about(test.workstation, &opener);
    open(about);
    auto* machine = about.findChild<QPlainTextEdit*>(u"rendszerinformacio"_s);
    EXPECT_FALSE(machine->isVisible());
    about.findChild<QPushButton*>(u"cmdSysInfo"_s)->setFocus();
    pressKey(Qt::Key_Return);
    EXPECT_TRUE(machine->isVisible());
    const QStringList lines = machine->toPlainText().split('\n'_L1);
    ASSERT_EQ(lines.size(), 11);
    EXPECT_EQ(lines[6], u"Programmappa: "_s + test.directory.path());
    EXPECT_EQ(lines[9], u"Qt: "_s + QLatin1StringView(qVersion()));
    for (const QString& line : lines)
        EXPECT_FALSE(line.section(": "_L1, 1).trimmed().isEmpty()) << line.toStdString();
    pressKey(Qt::Key_Escape);
    EXPECT_TRUE(opener.isEnabled());
}

} // namespace vandrel::test
