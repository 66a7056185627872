// The report screens by keyboard: the month's report, the choice of the target, the write-back of the marks.
#include "foundation/forms/openform.h"
#include "reports/forms/flujForm.h"
#include "reports/forms/levForm.h"
#include "support/keyboard.h"
#include "support/report_data.h"

#include <QComboBox>
#include <QDir>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QtTest>

using namespace Qt::StringLiterals;

using namespace vandrel;
using namespace vandrel::test;

namespace {

// The picture of a window, where the caller of the tests wants to look at it.
void keepPicture(QWidget& window, const QString& name) {
    const QString folder = qEnvironmentVariable("VANDREL_PICTURES");
    if (!folder.isEmpty()) window.grab().save(QDir(folder).filePath(name));
}

template<class Widget>
Widget* part(QWidget& form, const char* name) {
    auto* found = form.findChild<Widget*>(QString::fromLatin1(name));
    EXPECT_NE(found, nullptr) << name;
    return found;
}

class ReportForms : public testing::Test {
  protected:
    ReportForms() {
        addReportMasterData(test);
        test.workstation.Attunes = false;
        test.workstation.serveEvents = [] { QCoreApplication::processEvents(); };
        opener.show();
    }

    void show(WorkForm& form) {
        form.open();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&form));
        EXPECT_FALSE(opener.isEnabled());
    }
    // Texts of labels, a '|' between two.
    static QString shown(QWidget& form, const char* names) {
        QStringList texts;
        for (const QString& name : QString::fromLatin1(names).split(u' '))
            texts << form.findChild<QLabel*>(name)->text();
        return texts.join(u'|');
    }

    TestWorkstation test;
    QWidget opener;
};

} // namespace

TEST_F(ReportForms, TheMonthsReportByKeyboard) {
    QDir(test.directory.path()).mkdir(u"cel"_s);
    test.data().executeScript("begin");
    for (int key = 1; key <= 300; ++key)
        putSheet(test, key, {}, std::vector<LineData>(7, {"'11041'", "1"}));
    test.data().executeScript("commit");
    levForm form(test.workstation, &opener, *menuEntry("er"));
    show(form);
    EXPECT_EQ(form.windowTitle(), u"Havi jelentéskészítés - Eredeti"_s);
    EXPECT_EQ(shown(form, "OsszesInput MentesiUtKijelzo"), u"300|a:\\"_s);
    EXPECT_FALSE(part<QLineEdit>(form, "ElszIdoszak")->isVisible());
    EXPECT_EQ(focusName(), u"IdoszakTol"_s);
    EXPECT_EQ(part<QLineEdit>(form, "IdoszakTol")->displayText(), u"2008.03"_s);
    keepPicture(form, u"levForm.png"_s);

    // Back and forth between the periods; other keys than digits do nothing.
    EXPECT_EQ(enter(u"2008x02"_s), u"IdoszakIg"_s);
    EXPECT_EQ(pressKey(Qt::Key_Up), u"IdoszakTol"_s);
    EXPECT_EQ(pressKey(Qt::Key_Down), u"IdoszakIg"_s);
    EXPECT_EQ(part<QLineEdit>(form, "IdoszakTol")->displayText(), u"2008.02"_s);

    // An unfilled to-field: the focus goes to the from-field.
    pressKey(Qt::Key_Delete);
    EXPECT_EQ(pressKey(Qt::Key_Return), u"Levalogatas"_s);
    test.dialogue.expect(u"Hibás vég dátum!"_s);
    EXPECT_EQ(pressKey(Qt::Key_Return), u"IdoszakTol"_s);
    pressKey(Qt::Key_Return);
    enter(u"200803"_s);

    // The floppy is not there; nothing was touched and another target can be chosen.
    test.dialogue.expect(u"Nem található az elérési útvonal!"_s);
    pressKey(Qt::Key_Return);
    EXPECT_TRUE(part<QLineEdit>(form, "IdoszakTol")->isEnabled());
    QTest::keyClick(part<QPushButton>(form, "MentesiUt"), Qt::Key_Return);
    ASSERT_TRUE(
        QTest::qWaitFor([] { return qobject_cast<openform*>(QApplication::activeWindow()) != nullptr; }));
    auto* picker = qobject_cast<openform*>(QApplication::activeWindow());
    EXPECT_FALSE(form.isEnabled());
    EXPECT_FALSE(form.close()); // not under an open picker
    part<QListWidget>(*picker, "Mappak")->setFocus();
    pressKey(Qt::Key_Down); // "cel" follows ".."
    pressKey(Qt::Key_Return);
    keepPicture(*picker, u"openform.png"_s);
    EXPECT_EQ(part<QLineEdit>(*picker, "Utvonal")->text(), test.path(u"cel"_s));
    QTest::keyClick(part<QPushButton>(*picker, "Megnyit"), Qt::Key_Return);
    EXPECT_TRUE(form.isEnabled());
    EXPECT_EQ(test.workstation.reportTarget, test.path(u"cel/"_s));
    EXPECT_EQ(shown(form, "MentesiUtKijelzo"), test.path(u"cel/"_s));
    EXPECT_TRUE(shown(form, "Meghajto").startsWith(u"Meghajtó: "_s));
    EXPECT_TRUE(shown(form, "TeljesLemez").startsWith(u"Teljes lemezterület: "_s));
    EXPECT_TRUE(shown(form, "SzabadLemez").endsWith(u" kb "_s));

    ASSERT_TRUE(QTest::qWaitForWindowActive(&form));
    // The run; in its midst neither a second start nor closing does anything.
    part<QPushButton>(form, "Levalogatas")->setFocus();
    // Keys pressed while sheets are prepared and while records are written are noticed there and then.
    int answered = 0;
    QString pressedIn, last;
    test.workstation.turnEvery = std::chrono::milliseconds(0);
    test.workstation.serveEvents = [&] {
        const QString stage = shown(form, "Output") == u"0"_s ? u"Előkészítés"_s : u"Kiírás"_s;
        const bool early = shown(form, "Levalogatott").isEmpty();
        auto* hint = part<QLabel>(form, "figyelmeztetes");
        if (!early && stage != pressedIn) {
            pressedIn = stage;
            hint->clear();
            QCoreApplication::postEvent(&form,
                                        new QKeyEvent(QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier));
            QCoreApplication::processEvents();
            answered += hint->text().isEmpty() ? 0 : 1;
        }
        if (!last.isEmpty()) return;
        last = stage;
        QCoreApplication::processEvents();
        EXPECT_FALSE(form.close());
        EXPECT_FALSE(part<QPushButton>(form, "Levalogatas")->isEnabled());
        EXPECT_EQ(form.cursor().shape(), Qt::WaitCursor);
        EXPECT_EQ(shown(form, "figyelmeztetes"), u"A leválogatás fut, kérem várjon, amíg befejeződik!"_s);
    };
    pressKey(Qt::Key_Return);
    EXPECT_EQ(answered, 2);
    EXPECT_TRUE(QFile::exists(test.path(u"cel/N123.id"_s)));
    EXPECT_TRUE(fileBytes(test.path(u"tetN123.amb"_s)).contains("\r\n0000600\r\n"));
    EXPECT_EQ(shown(form, "IdoszakInput Output OsszesBeavatkozas Levalogatott Allapot Szazalek"),
              u"300|600|2100|300|Kiírás: 600|100,00 %"_s);
    EXPECT_NE(form.cursor().shape(), Qt::WaitCursor);
    for (const char* name : {"IdoszakTol", "IdoszakIg", "Levalogatas", "MentesiUt"})
        EXPECT_FALSE(part<QWidget>(form, name)->isEnabled()) << name;
    keepPicture(form, u"levForm_kesz.png"_s);
    EXPECT_TRUE(form.close());
    EXPECT_TRUE(opener.isEnabled());
}

TEST_F(ReportForms, TheStateLineNamesTheSheetThatBrokeTheReport) {
    putSheet(test, 1, {}, {{"'11041'", "1"}});
    putSheet(test, 2, {}, std::vector<LineData>(8, {"'11041'", "100"}));
    levForm form(test.workstation, &opener, *menuEntry("er"));
    test.workstation.reportTarget = test.path({}) + '/'_L1;
    show(form);
    test.dialogue.expect(u"Hiba történt az adatkiírás során!5"_s, u"Hiba mentés közben"_s);
    part<QPushButton>(form, "Levalogatas")->setFocus();
    pressKey(Qt::Key_Return);
    EXPECT_EQ(shown(form, "figyelmeztetes"), u"Hibás adatlap: TST0000002, mező: MENNY"_s);
    keepPicture(form, u"levForm_hiba.png"_s);
}

TEST_F(ReportForms, NoDataLetsTheUserTryAnotherPeriod) {
    levForm form(test.workstation, &opener, *menuEntry("er"));
    test.workstation.reportTarget = test.path({}) + '/'_L1;
    show(form);
    test.dialogue.expect(
        u"Nincs a feltételeknek megfelelő adat!\nLehetséges hibák: \n\t - a megadott dátumintervallumra "
        "a jelentés egyszer más elkészült, a floppy mezők visszaírása szükséges"_s,
        u"Hiba!"_s);
    part<QPushButton>(form, "Levalogatas")->setFocus();
    pressKey(Qt::Key_Return);
    EXPECT_TRUE(test.dialogue.allShown());
    EXPECT_EQ(focusName(), u"IdoszakTol"_s);
    EXPECT_NE(form.cursor().shape(), Qt::WaitCursor);
    EXPECT_TRUE(part<QPushButton>(form, "Levalogatas")->isEnabled());
}

TEST_F(ReportForms, ModesShowTheirOwnFields) {
    levForm corrected(test.workstation, &opener, *menuEntry("jav"));
    show(corrected);
    EXPECT_EQ(corrected.windowTitle(), u"Havi jelentéskészítés - Javítás"_s);
    EXPECT_EQ(part<QLineEdit>(corrected, "IdoszakTol")->displayText(), u"2008.02"_s);
    EXPECT_EQ(part<QLineEdit>(corrected, "ElszIdoszak")->displayText(), u"2008.03"_s);
    pressKey(Qt::Key_Return);
    EXPECT_EQ(pressKey(Qt::Key_Return), u"ElszIdoszak"_s);
    EXPECT_EQ(pressKey(Qt::Key_Up), u"IdoszakIg"_s);
    keepPicture(corrected, u"levForm_javitas.png"_s);
    pressKey(Qt::Key_Escape);
    EXPECT_FALSE(corrected.isVisible());

    levForm eu(test.workstation, &opener, *menuEntry("eujel"));
    show(eu);
    EXPECT_EQ(eu.windowTitle(), u"Havi jelentéskészítés - EU jelentés"_s);
    EXPECT_FALSE(part<QLineEdit>(eu, "IdoszakIg")->isVisible());
    EXPECT_EQ(pressKey(Qt::Key_Return), u"Levalogatas"_s);
}

TEST_F(ReportForms, ThePickerTakesOnlyAFolderThatIsThere) {
    QDir(test.directory.path()).mkpath(u"Ő <b>mappa/al"_s);
    QFile(test.path(u"Ő <b>mappa/X.TXT"_s)).open(QIODevice::WriteOnly);
    QFile(test.path(u"Ő <b>mappa/x.doc"_s)).open(QIODevice::WriteOnly);
    QStringList chosen;
    const auto take = [&chosen](const QString& path, const VolumeTexts&) { chosen << path; };
    openform form(test.workstation, &opener, u"1"_s, take);
    show(form);
    EXPECT_EQ(focusName(), u"Mappak"_s);
    EXPECT_GT(part<QComboBox>(form, "Meghajtok")->count(), 0);
    pressKey(Qt::Key_Down);
    pressKey(Qt::Key_Return);
    auto* files = part<QListWidget>(form, "Fajlok");
    ASSERT_EQ(files->count(), 1);
    EXPECT_EQ(files->item(0)->text(), u"X.TXT"_s);
    pressKey(Qt::Key_Backspace);
    auto* path = part<QLineEdit>(form, "Utvonal");
    EXPECT_EQ(path->text(), test.directory.path());
    for (const QString& wrong : {u"a:\\"_s, u"/nincs/ilyen"_s, u" "_s, u"Ő <b>mappa"_s}) {
        path->setText(wrong);
        path->setFocus();
        test.dialogue.expect(u"Nem található az elérési útvonal!"_s);
        EXPECT_EQ(pressKey(Qt::Key_Return), u"Utvonal"_s);
    }
    EXPECT_EQ(test.workstation.reportTarget, u"a:\\"_s);
    path->setText(test.path(u"Ő <b>mappa//"_s));
    pressKey(Qt::Key_Return);
    EXPECT_EQ(chosen, QStringList(test.path(u"Ő <b>mappa"_s)));
    EXPECT_EQ(test.workstation.reportTarget, test.path(u"Ő <b>mappa/"_s));
    EXPECT_TRUE(opener.isEnabled());

    // "Mégse" changes nothing, and a source is no report target.
    openform left(test.workstation, &opener, u"1"_s, take);
    show(left);
    QTest::keyClick(part<QPushButton>(left, "Megse"), Qt::Key_Return);
    EXPECT_TRUE(opener.isEnabled());
    openform source(test.workstation, &opener, u"3"_s, take);
    show(source);
    QTest::keyClick(part<QPushButton>(source, "Megnyit"), Qt::Key_Return);
    EXPECT_EQ(chosen.size(), 2);
    EXPECT_EQ(test.workstation.reportTarget, test.path(u"Ő <b>mappa/"_s));
}

TEST_F(ReportForms, WriteBackByKeyboard) {
    putSheet(test, 1, "FLOPPY=1");
    putSheet(test, 2, "FLOPPY2=1");
    flujForm form(test.workstation, &opener);
    show(form);
    EXPECT_EQ(form.windowTitle(), u"Floppy mezők visszaírása"_s);
    EXPECT_EQ(focusName(), u"IdoszakTol"_s);
    EXPECT_TRUE(part<QRadioButton>(form, "Eredeti")->isChecked());
    enter(u"200803"_s);
    EXPECT_EQ(pressKey(Qt::Key_Return), u"Visszaallitas"_s);
    test.dialogue.expect(u"Nem adott meg -Ig értéket!"_s);
    EXPECT_EQ(pressKey(Qt::Key_Return), u"IdoszakIg"_s);
    // A half-filled mask and a month that is none would clear the marks of other times.
    for (const QString& wrong : {u"2008"_s, u"200813"_s, u"200800"_s}) {
        typeText(wrong);
        part<QPushButton>(form, "Visszaallitas")->setFocus();
        test.dialogue.expect(u"Nem adott meg -Ig értéket!"_s);
        EXPECT_EQ(pressKey(Qt::Key_Return), u"IdoszakIg"_s) << wrong.toStdString();
        pressKey(Qt::Key_Delete);
    }
    EXPECT_EQ(firstText(test.data(), "select count(*) from BETEG where FLOPPY=1 or FLOPPY2=1"), u"2"_s);
    typeText(u"200803"_s);
    pressKey(Qt::Key_Tab);
    pressKey(Qt::Key_Right);
    EXPECT_TRUE(part<QRadioButton>(form, "Javitott")->isChecked());
    EXPECT_EQ(pressKey(Qt::Key_Return), u"Visszaallitas"_s); // on from an option as well
    test.dialogue.expect(u"Kész az adatvisszaállítás!"_s, programTitle, Icon::information);
    pressKey(Qt::Key_Return);
    EXPECT_EQ(shown(form, "Darab"), u"1 / 1"_s);
    EXPECT_EQ(firstText(test.data(), "select group_concat(FLOPPY || FLOPPY2, ' ') from BETEG"), u"10 00"_s);
    keepPicture(form, u"flujForm.png"_s);
    pressKey(Qt::Key_Escape);
    EXPECT_TRUE(opener.isEnabled());
}
