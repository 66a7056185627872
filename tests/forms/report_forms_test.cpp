// The report screens by keyboard: the month's report, the choice of the target, the write-back of the marks.
#include "reports/forms/flujForm.h"
#include "reports/forms/levForm.h"
#include "reports/forms/openform.h"
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
    static QString shown(QWidget& form, const char* name) { return part<QLabel>(form, name)->text(); }

    TestWorkstation test;
    QWidget opener;
};

} // namespace

TEST_F(ReportForms, TheMonthsReportByKeyboard) {
    QDir(test.directory.path()).mkdir(QStringLiteral("cel"));
    test.data().executeScript("begin");
    for (int key = 1; key <= 300; ++key)
        addSheet(test, key, {}, std::vector<LineData>(7, {"'11041'", "1"}));
    test.data().executeScript("commit");
    levForm form(test.workstation, &opener, QStringLiteral("0"));
    show(form);
    EXPECT_EQ(form.windowTitle(), QStringLiteral("Havi jelentéskészítés - Eredeti"));
    EXPECT_EQ(shown(form, "OsszesInput"), QStringLiteral("300"));
    EXPECT_EQ(shown(form, "MentesiUtKijelzo"), QStringLiteral("a:\\"));
    EXPECT_FALSE(part<QLineEdit>(form, "ElszIdoszak")->isVisible());
    EXPECT_EQ(focusName(), QStringLiteral("IdoszakTol"));
    EXPECT_EQ(part<QLineEdit>(form, "IdoszakTol")->displayText(), QStringLiteral("2008.03"));
    keepPicture(form, QStringLiteral("levForm.png"));

    // Back and forth between the periods; other keys than digits do nothing.
    typeText(QStringLiteral("2008x02"));
    pressKey(Qt::Key_Return);
    EXPECT_EQ(focusName(), QStringLiteral("IdoszakIg"));
    pressKey(Qt::Key_Up);
    EXPECT_EQ(focusName(), QStringLiteral("IdoszakTol"));
    pressKey(Qt::Key_Down);
    EXPECT_EQ(focusName(), QStringLiteral("IdoszakIg"));
    EXPECT_EQ(part<QLineEdit>(form, "IdoszakTol")->displayText(), QStringLiteral("2008.02"));

    // An unfilled to-field: the focus goes to the from-field.
    pressKey(Qt::Key_Delete);
    pressKey(Qt::Key_Return);
    EXPECT_EQ(focusName(), QStringLiteral("Levalogatas"));
    test.dialogue.expect(QStringLiteral("Hibás vég dátum!"));
    pressKey(Qt::Key_Return);
    EXPECT_EQ(focusName(), QStringLiteral("IdoszakTol"));
    pressKey(Qt::Key_Return);
    typeText(QStringLiteral("200803"));
    pressKey(Qt::Key_Return);

    // The floppy is not there; nothing was touched and another target can be chosen.
    test.dialogue.expect(QStringLiteral("Nem található az elérési útvonal!"));
    pressKey(Qt::Key_Return);
    EXPECT_TRUE(part<QLineEdit>(form, "IdoszakTol")->isEnabled());
    QTest::keyClick(part<QPushButton>(form, "MentesiUt"), Qt::Key_Return);
    ASSERT_TRUE(
        QTest::qWaitFor([] { return qobject_cast<openform*>(QApplication::activeWindow()) != nullptr; }));
    auto* picker = qobject_cast<openform*>(QApplication::activeWindow());
    EXPECT_FALSE(form.isEnabled());
    EXPECT_FALSE(form.close()); // not under an open picker
    part<QListWidget>(*picker, "Mappak")->setFocus();
    pressKey(Qt::Key_Down); // behind ".." stands "cel"
    pressKey(Qt::Key_Return);
    keepPicture(*picker, QStringLiteral("openform.png"));
    EXPECT_EQ(part<QLineEdit>(*picker, "Utvonal")->text(), test.path(QStringLiteral("cel")));
    QTest::keyClick(part<QPushButton>(*picker, "Megnyit"), Qt::Key_Return);
    EXPECT_TRUE(form.isEnabled());
    EXPECT_EQ(test.workstation.reportTarget, test.path(QStringLiteral("cel/")));
    EXPECT_EQ(shown(form, "MentesiUtKijelzo"), test.path(QStringLiteral("cel/")));
    EXPECT_TRUE(shown(form, "Meghajto").startsWith(QStringLiteral("Meghajtó: ")));
    EXPECT_TRUE(shown(form, "TeljesLemez").startsWith(QStringLiteral("Teljes lemezterület: ")));
    EXPECT_TRUE(shown(form, "SzabadLemez").endsWith(QStringLiteral(" kb ")));

    ASSERT_TRUE(QTest::qWaitForWindowActive(&form));
    // The run; in its midst neither a second start nor closing does anything.
    part<QPushButton>(form, "Levalogatas")->setFocus();
    bool tried = false;
    test.workstation.serveEvents = [&] {
        QCoreApplication::processEvents();
        if (tried) return;
        tried = true;
        EXPECT_FALSE(form.close());
        EXPECT_FALSE(part<QPushButton>(form, "Levalogatas")->isEnabled());
        EXPECT_EQ(form.cursor().shape(), Qt::WaitCursor);
        EXPECT_EQ(shown(form, "figyelmeztetes"),
                  QStringLiteral("A leválogatás fut, kérem várjon, amíg befejeződik!"));
    };
    pressKey(Qt::Key_Return);
    EXPECT_TRUE(tried);
    EXPECT_TRUE(QFile::exists(test.path(QStringLiteral("cel/N123.id"))));
    EXPECT_TRUE(fileBytes(test.path(QStringLiteral("tetN123.amb"))).contains("\r\n0000600\r\n"));
    EXPECT_EQ(shown(form, "IdoszakInput"), QStringLiteral("300"));
    EXPECT_EQ(shown(form, "Output"), QStringLiteral("600"));
    EXPECT_EQ(shown(form, "OsszesBeavatkozas"), QStringLiteral("2100"));
    EXPECT_EQ(shown(form, "Levalogatott"), QStringLiteral("300"));
    EXPECT_EQ(shown(form, "Allapot"), QStringLiteral("Kiírás: 600"));
    EXPECT_EQ(shown(form, "Szazalek"), QStringLiteral("100,00 %"));
    EXPECT_NE(form.cursor().shape(), Qt::WaitCursor);
    for (const char* name : {"IdoszakTol", "IdoszakIg", "Levalogatas", "MentesiUt"})
        EXPECT_FALSE(part<QWidget>(form, name)->isEnabled()) << name;
    keepPicture(form, QStringLiteral("levForm_kesz.png"));
    EXPECT_TRUE(form.close());
    EXPECT_TRUE(opener.isEnabled());
}

TEST_F(ReportForms, NoDataLetsTheUserTryAnotherPeriod) {
    levForm form(test.workstation, &opener, QStringLiteral("0"));
    test.workstation.reportTarget = test.path({}) + QLatin1Char('/');
    show(form);
    test.dialogue.expect(
        QStringLiteral(
            "Nincs a feltételeknek megfelelő adat!\nLehetséges hibák: \n\t - a megadott dátumintervallumra "
            "a jelentés egyszer más elkészült, a floppy mezők visszaírása szükséges"),
        QStringLiteral("Hiba!"));
    part<QPushButton>(form, "Levalogatas")->setFocus();
    pressKey(Qt::Key_Return);
    EXPECT_TRUE(test.dialogue.allShown());
    EXPECT_EQ(focusName(), QStringLiteral("IdoszakTol"));
    EXPECT_NE(form.cursor().shape(), Qt::WaitCursor);
    EXPECT_TRUE(part<QPushButton>(form, "Levalogatas")->isEnabled());
}

TEST_F(ReportForms, ModesShowTheirOwnFields) {
    levForm corrected(test.workstation, &opener, QStringLiteral("1"));
    show(corrected);
    EXPECT_EQ(corrected.windowTitle(), QStringLiteral("Havi jelentéskészítés - Javítás"));
    EXPECT_EQ(part<QLineEdit>(corrected, "IdoszakTol")->displayText(), QStringLiteral("2008.02"));
    EXPECT_EQ(part<QLineEdit>(corrected, "ElszIdoszak")->displayText(), QStringLiteral("2008.03"));
    pressKey(Qt::Key_Return);
    pressKey(Qt::Key_Return);
    EXPECT_EQ(focusName(), QStringLiteral("ElszIdoszak"));
    pressKey(Qt::Key_Up);
    EXPECT_EQ(focusName(), QStringLiteral("IdoszakIg"));
    keepPicture(corrected, QStringLiteral("levForm_javitas.png"));
    pressKey(Qt::Key_Escape);
    EXPECT_FALSE(corrected.isVisible());

    levForm eu(test.workstation, &opener, QStringLiteral("E"));
    show(eu);
    EXPECT_EQ(eu.windowTitle(), QStringLiteral("Havi jelentéskészítés - EU jelentés"));
    EXPECT_FALSE(part<QLineEdit>(eu, "IdoszakIg")->isVisible());
    pressKey(Qt::Key_Return);
    EXPECT_EQ(focusName(), QStringLiteral("Levalogatas"));
}

TEST_F(ReportForms, ThePickerTakesOnlyAFolderThatIsThere) {
    QDir(test.directory.path()).mkpath(QStringLiteral("Ő <b>mappa/al"));
    QFile(test.path(QStringLiteral("Ő <b>mappa/X.TXT"))).open(QIODevice::WriteOnly);
    QFile(test.path(QStringLiteral("Ő <b>mappa/x.doc"))).open(QIODevice::WriteOnly);
    QStringList chosen;
    const auto take = [&chosen](const QString& path, const VolumeTexts&) { chosen << path; };
    openform form(test.workstation, &opener, QStringLiteral("1"), take);
    show(form);
    EXPECT_EQ(focusName(), QStringLiteral("Mappak"));
    EXPECT_GT(part<QComboBox>(form, "Meghajtok")->count(), 0);
    pressKey(Qt::Key_Down);
    pressKey(Qt::Key_Return);
    auto* files = part<QListWidget>(form, "Fajlok");
    ASSERT_EQ(files->count(), 1);
    EXPECT_EQ(files->item(0)->text(), QStringLiteral("X.TXT"));
    pressKey(Qt::Key_Backspace);
    auto* path = part<QLineEdit>(form, "Utvonal");
    EXPECT_EQ(path->text(), test.directory.path());
    for (const QString& wrong : {QStringLiteral("a:\\"), QStringLiteral("/nincs/ilyen"), QStringLiteral(" "),
                                 QStringLiteral("Ő <b>mappa")}) {
        path->setText(wrong);
        path->setFocus();
        test.dialogue.expect(QStringLiteral("Nem található az elérési útvonal!"));
        pressKey(Qt::Key_Return);
        EXPECT_EQ(focusName(), QStringLiteral("Utvonal"));
    }
    EXPECT_EQ(test.workstation.reportTarget, QStringLiteral("a:\\"));
    path->setText(test.path(QStringLiteral("Ő <b>mappa//")));
    pressKey(Qt::Key_Return);
    EXPECT_EQ(chosen, QStringList(test.path(QStringLiteral("Ő <b>mappa"))));
    EXPECT_EQ(test.workstation.reportTarget, test.path(QStringLiteral("Ő <b>mappa/")));
    EXPECT_TRUE(opener.isEnabled());

    // "Mégse" changes nothing, and a source is no report target.
    openform left(test.workstation, &opener, QStringLiteral("1"), take);
    show(left);
    QTest::keyClick(part<QPushButton>(left, "Megse"), Qt::Key_Return);
    EXPECT_TRUE(opener.isEnabled());
    openform source(test.workstation, &opener, QStringLiteral("3"), take);
    show(source);
    QTest::keyClick(part<QPushButton>(source, "Megnyit"), Qt::Key_Return);
    EXPECT_EQ(chosen.size(), 2);
    EXPECT_EQ(test.workstation.reportTarget, test.path(QStringLiteral("Ő <b>mappa/")));
}

TEST_F(ReportForms, WriteBackByKeyboard) {
    addSheet(test, 1, {{"FLOPPY", "1"}}, {});
    addSheet(test, 2, {{"FLOPPY2", "1"}}, {});
    flujForm form(test.workstation, &opener);
    show(form);
    EXPECT_EQ(form.windowTitle(), QStringLiteral("Floppy mezők visszaírása"));
    EXPECT_EQ(focusName(), QStringLiteral("IdoszakTol"));
    EXPECT_TRUE(part<QRadioButton>(form, "Eredeti")->isChecked());
    typeText(QStringLiteral("200803"));
    pressKey(Qt::Key_Return);
    pressKey(Qt::Key_Return);
    EXPECT_EQ(focusName(), QStringLiteral("Visszaallitas"));
    test.dialogue.expect(QStringLiteral("Nem adott meg -Ig értéket!"));
    pressKey(Qt::Key_Return);
    EXPECT_EQ(focusName(), QStringLiteral("IdoszakIg"));
    typeText(QStringLiteral("200803"));
    pressKey(Qt::Key_Tab);
    pressKey(Qt::Key_Right);
    EXPECT_TRUE(part<QRadioButton>(form, "Javitott")->isChecked());
    part<QPushButton>(form, "Visszaallitas")->setFocus();
    test.dialogue.expect(QStringLiteral("Kész az adatvisszaállítás!"), programTitle, Icon::information);
    pressKey(Qt::Key_Return);
    EXPECT_EQ(shown(form, "Darab"), QStringLiteral("1 / 1"));
    EXPECT_EQ(firstText(test.data(), "select group_concat(FLOPPY || FLOPPY2, ' ') from BETEG"),
              QStringLiteral("10 00"));
    keepPicture(form, QStringLiteral("flujForm.png"));
    pressKey(Qt::Key_Escape);
    EXPECT_TRUE(opener.isEnabled());
}
