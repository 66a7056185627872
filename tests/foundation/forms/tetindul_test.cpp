// The main window: its menu map, toolbar, links, and what each activation does in which order.
#include "foundation/forms/tetindul.h"

#include "foundation/forms/box_dialogue.h"
#include "foundation/forms/work_form.h"
#include "support/test_workstation.h"

#include <QAction>
#include <QApplication>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <QToolButton>

using namespace Qt::StringLiterals;

namespace vandrel::test {

namespace {

const QString institutionQuestion = u"Az intézeti adatok nincsenek kitöltve!Kívánja most kitölteni?"_s;

void fillInstitution(TestWorkstation& test) {
    test.data().execute("insert into intezet (Int_nev) values ('Rendelő')");
}

const QString exitQuestion = u"Valóban ki akar lépni?"_s;

QStringList words(const QString& text) {
    return text.split(u' ');
}

// A main window with environment that write down what happens.
struct Shell {
    explicit Shell(Workstation& station)
        : window(station, {[this] {
                               steps << u"instance"_s;
                               return otherRuns;
                           },
                           [this] { steps << u"end"_s; },
                           [this](QWidget&, bool seeThrough) {
                               steps << (seeThrough ? u"see-through"_s : u"solid"_s);
                               return seeThroughWorks;
                           }}) {}

    void show() {
        window.load();
        window.show();
        activate();
    }
    void activate() {
        window.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
        settle();
    }
    void leaveAndComeBack() {
        QWidget other;
        other.show();
        other.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&other));
        activate();
    }
    static void settle() {
        for (int turn = 0; turn < 5; ++turn)
            QCoreApplication::processEvents();
    }
    QAction* action(const char* name) { return window.findChild<QAction*>(QLatin1StringView(name)); }
    QToolButton* button(int index) { return window.findChild<QToolButton*>(u"Toolbar1_%1"_s.arg(index)); }
    QPushButton* link(const char* text) { return window.findChild<QPushButton*>(QString::fromUtf8(text)); }
    QListWidget* warnings() { return window.findChild<QListWidget*>(u"figyelmeztetesek"_s); }
    QStringList warningTexts() {
        QStringList texts;
        for (int row = 0; row < warnings()->count(); ++row)
            texts << warnings()->item(row)->text();
        return texts;
    }
    QStringList disabled() {
        QStringList names;
        for (const MenuEntry& entry : menuMap())
            if (!action(std::string(entry.name).c_str())->isEnabled()) names << menuText(entry.name);
        return names;
    }

    // Every entry that could have one gets an opener, which writes its name down.
    void openAll() {
        for (const MenuEntry& entry : menuMap())
            if (entry.kind != MenuKind::title && entry.kind != MenuKind::none &&
                entry.kind != MenuKind::leaving)
                window.setOpener(menuText(entry.name),
                                 [this, name = menuText(entry.name)] { opened << name; });
    }

    QStringList steps, opened;
    bool otherRuns = false;
    bool seeThroughWorks = true;
    tetindul window;
};

void listMenu(const QList<QAction*>& actions, int depth, QString& text) {
    for (const QAction* action : actions) {
        text += QString(depth * 2, ' '_L1) + action->objectName() + u" \""_s + action->text() + u"\"\n"_s;
        if (action->menu() != nullptr) listMenu(action->menu()->actions(), depth + 1, text);
    }
}

} // namespace

TEST(MainWindow, MenuHasEveryEntryInItsPlace) {
    TestWorkstation test;
    Shell shell(test.workstation);
    QString menu;
    listMenu(shell.window.menuBar()->actions(), 0, menu);
    EXPECT_EQ(menu.toStdString(), fileBytes(QStringLiteral(VANDREL_GOLDEN_DIR "/menu.txt")).toStdString());
}

TEST(MainWindow, EntriesWithoutOpenerAreDisabledWithTheirButtonsAndLinks) {
    TestWorkstation test;
    fillInstitution(test);
    Shell shell(test.workstation);
    shell.show();
    for (const MenuEntry& entry : menuMap()) {
        const bool alive = entry.kind == MenuKind::title || entry.kind == MenuKind::leaving;
        EXPECT_EQ(shell.action(std::string(entry.name).c_str())->isEnabled(), alive) << entry.name;
    }
    for (int index = 1; index <= 6; ++index)
        EXPECT_EQ(shell.button(index)->isEnabled(), index >= 5) << index;
    EXPECT_FALSE(shell.link("Verziókövetés")->isEnabled());
    EXPECT_FALSE(shell.link("Frissítés")->isEnabled());

    shell.openAll();
    EXPECT_EQ(shell.disabled(), words(u"helyremenu frissmenu"_s));
    for (const MenuEntry& entry : menuMap())
        if (entry.kind == MenuKind::form) shell.action(std::string(entry.name).c_str())->trigger();
    const qsizetype forms = shell.opened.size();
    EXPECT_EQ(forms, std::ranges::count(menuMap(), MenuKind::form, &MenuEntry::kind));
    shell.opened.clear();
    const QStringList toolTips = {u"Új beteg felvétele"_s,
                                  u"Beteg módosítása"_s,
                                  u"Eredeti formátumú jelentés floppy előállítása"_s,
                                  u"Javított formátumú jelentés floppy előállítása"_s,
                                  u"Névjegy"_s,
                                  u"Kilépés"_s};
    // Button 5 stays without an action although it is called "Névjegy".
    for (int index = 1; index <= 5; ++index) {
        QTest::mouseClick(shell.button(index), Qt::LeftButton);
        EXPECT_EQ(shell.button(index)->toolTip(), toolTips[index - 1]);
        EXPECT_EQ(shell.button(index)->accessibleName(), toolTips[index - 1]);
    }
    QTest::mouseClick(shell.link("Verziókövetés"), Qt::LeftButton);
    QTest::keyClick(shell.link("Frissítés"), Qt::Key_Space);
    EXPECT_EQ(shell.opened, words(u"adfelv admod er jav nevj prfrissmenu"_s));
    // Enter presses what has the focus.
    shell.opened.clear();
    for (QWidget* pressed : std::initializer_list<QWidget*>{shell.button(2), shell.link("Frissítés")}) {
        pressed->setFocus();
        QTest::keyClick(pressed, Qt::Key_Return);
    }
    EXPECT_EQ(shell.opened, words(u"admod prfrissmenu"_s));
}

TEST(MainWindow, KeysOpenMenusAndEntries) {
    TestWorkstation test;
    fillInstitution(test);
    Shell shell(test.workstation);
    shell.openAll();
    shell.show();
    QTest::keyClick(&shell.window, Qt::Key_A, Qt::AltModifier);
    QWidget* menu = QApplication::activePopupWidget();
    ASSERT_NE(menu, nullptr);
    QTest::keyClick(menu, Qt::Key_Return); // the first entry is marked
    EXPECT_EQ(shell.opened, QStringList({u"adfelv"_s}));
    QTest::keyClick(&shell.window, Qt::Key_N, Qt::ControlModifier);
    QTest::keyClick(&shell.window, Qt::Key_J, Qt::AltModifier);
    EXPECT_EQ(shell.opened, words(u"adfelv adfelv nevj"_s));
}

TEST(MainWindow, LinkIsLitUntilThePictureOrTheToolbarGetThePointer) {
    TestWorkstation test;
    Shell shell(test.workstation);
    shell.openAll();
    auto* link = shell.link("Verziókövetés");
    QWidget* toolbar = shell.window.findChild<QWidget*>(u"Toolbar1"_s);
    for (QWidget* place : {link->parentWidget(), toolbar}) {
        EXPECT_TRUE(link->styleSheet().contains("color: #ffffff"_L1));
        QEnterEvent enter(QPointF(2, 2), QPointF(2, 2), QPointF(2, 2));
        QCoreApplication::sendEvent(link, &enter);
        EXPECT_TRUE(link->styleSheet().contains("color: #e0e0e0"_L1));
        QMouseEvent move(QEvent::MouseMove, QPointF(2, 2), QPointF(2, 2), Qt::NoButton, Qt::NoButton, {});
        QCoreApplication::sendEvent(place, &move);
    }
    EXPECT_TRUE(link->styleSheet().contains("color: #ffffff"_L1));
}

TEST(MainWindow, FirstActivationInOrderWithTheHiddenList) {
    TestWorkstation test;
    Shell shell(test.workstation);
    shell.openAll();
    EXPECT_FALSE(shell.warnings()->isHidden());
    test.dialogue.expectQuestion(institutionQuestion, Answer::yes);
    shell.show();
    EXPECT_EQ(shell.window.windowTitle(), u"Vandrel Járóbeteg program v2.25"_s);
    EXPECT_EQ(shell.steps, words(u"solid instance"_s));
    EXPECT_EQ(shell.opened, QStringList({u"int"_s}));
    EXPECT_EQ(shell.window.findChild<QLineEdit*>(u"datum"_s)->text(), u"2008.04.03."_s);
    EXPECT_EQ(shell.window.findChild<QLineEdit*>(u"ido"_s)->text(), u"14:05"_s);
    // The list is filled, but was hidden before, and nothing shows it again.
    const QStringList all = {
        u"Az intézeti adatok nincsenek kitöltve!"_s,
        u"Orvoskódok nincsenek kitöltve! Kitöltés: Szerviz tevékenységek->Adatbázisok "
        "karbantartása->Orvoskódok"_s,
        u"Szakrendelő kódok nincsenek kitöltve! Kitöltés: Szerviz tevékenységek->Adatbázisok "
        "karbantartása->Szakrendelő kódszótár"_s};
    EXPECT_EQ(shell.warningTexts(), all);
    EXPECT_TRUE(shell.warnings()->isHidden());
    EXPECT_TRUE(shell.window.findChild<QLabel*>(u"figyelmeztetesek_cim"_s)->isHidden());
    EXPECT_EQ(firstText(test.data(), "select Elso_inditas from Beallitasok"), u"0"_s);

    // The next activation clears the list and finds nothing more to warn of.
    fillInstitution(test);
    test.clock.set(QDateTime(QDate(2008, 4, 4), QTime(7, 30)));
    shell.leaveAndComeBack();
    EXPECT_EQ(shell.warningTexts(), QStringList());
    EXPECT_TRUE(shell.warnings()->isHidden());
    EXPECT_EQ(shell.window.findChild<QLineEdit*>(u"ido"_s)->text(), u"07:30"_s);
}

TEST(MainWindow, AnswerNoDisablesTheNamedMenusForThatActivation) {
    TestWorkstation test;
    Shell shell(test.workstation);
    shell.openAll();
    test.dialogue.expectQuestion(institutionQuestion, Answer::no);
    shell.show();
    EXPECT_EQ(shell.disabled(), words(u"adkez stati leval szerviz helyremenu napiment frissmenu nevj kil"_s));
    // Closing the window is the only way out: button and key of the exit are as dead as its menu.
    QTest::mouseClick(shell.button(6), Qt::LeftButton);
    QTest::mouseClick(shell.button(1), Qt::LeftButton);
    QTest::keyClick(&shell.window, Qt::Key_Q, Qt::ControlModifier);
    QTest::keyClick(&shell.window, Qt::Key_N, Qt::ControlModifier);
    EXPECT_EQ(shell.opened, QStringList());
    EXPECT_TRUE(shell.window.isVisible());

    // The next activation asks again and lifts the limits when there is an institution.
    fillInstitution(test);
    shell.leaveAndComeBack();
    EXPECT_EQ(shell.disabled(), words(u"helyremenu frissmenu"_s));

    shell.window.close();
    EXPECT_EQ(shell.steps.count(u"end"_s), 1);
}

// With real boxes: the question's own box hands the window back, which must not ask again.
TEST(MainWindow, RealBoxesDoNotStackOrRepeat) {
    struct Boxes : BoxDialogue {
        Boxes() : BoxDialogue(0) {}
        Answer show(const Message& message) override {
            texts << message.text;
            QTimer::singleShot(0, [] {
                QWidget* box = QApplication::activeModalWidget();
                ASSERT_NE(box, nullptr);
                QTest::keyClick(box, Qt::Key_N);
            });
            return BoxDialogue::show(message);
        }
        QStringList texts;
    };
    TestWorkstation test;
    Boxes boxes;
    Workstation station(test.directory.path(), boxes, test.clock, test.packer);
    Shell shell(station);
    shell.show();
    EXPECT_EQ(boxes.texts, QStringList({institutionQuestion}));

    // The exit box hands back as well, and is no activation either.
    fillInstitution(test);
    shell.leaveAndComeBack();
    EXPECT_EQ(shell.steps.count(u"instance"_s), 2);
    shell.action("kil")->trigger();
    shell.activate();
    EXPECT_EQ(boxes.texts, QStringList({institutionQuestion, exitQuestion}));
    EXPECT_EQ(shell.steps.count(u"instance"_s), 2);
    EXPECT_TRUE(shell.window.isVisible());
}

TEST(MainWindow, AFormThatClosesHandsBackAnActivation) {
    TestWorkstation test;
    Shell shell(test.workstation);
    std::unique_ptr<WorkForm> form;
    shell.window.setOpener(u"int"_s, [&] {
        form = std::make_unique<WorkForm>(test.workstation, &shell.window);
        form->open();
    });
    test.dialogue.expectQuestion(institutionQuestion, Answer::yes);
    shell.show();
    ASSERT_NE(form, nullptr);
    EXPECT_FALSE(shell.window.isEnabled());
    Shell::settle();
    // The form is closed with nothing stored: asked again.
    test.dialogue.expectQuestion(institutionQuestion, Answer::no);
    form->close();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&shell.window));
    Shell::settle();
    EXPECT_TRUE(test.dialogue.allShown());
    EXPECT_TRUE(shell.window.isEnabled());
    EXPECT_FALSE(shell.action("adkez")->isEnabled());
}

TEST(MainWindow, SecondInstanceEndsWhateverIsAnswered) {
    for (const Answer answer : {Answer::yes, Answer::no}) {
        TestWorkstation test;
        Shell shell(test.workstation);
        shell.otherRuns = true;
        test.dialogue.expectQuestion(u"A program már fut egy példányban!"_s, answer, u"Figyelmeztetés"_s,
                                     Icon::critical);
        shell.show(); // the institution, a later step, is not asked for
        EXPECT_EQ(shell.steps, words(u"solid instance end"_s));
        EXPECT_FALSE(shell.window.isVisible());
    }
}

TEST(MainWindow, SeeThroughThatFailsIsSwitchedOff) {
    TestWorkstation test;
    fillInstitution(test);
    test.data().execute("update EGYEBPAR set Attunes=1");
    Shell shell(test.workstation);
    shell.seeThroughWorks = false;
    shell.show();
    EXPECT_EQ(shell.steps.value(0), u"see-through"_s);
    EXPECT_EQ(firstText(test.data(), "select Attunes from EGYEBPAR"), u"0"_s);
    EXPECT_FALSE(test.workstation.Attunes);
}

TEST(MainWindow, OldDatabaseFormatDisablesItsMenus) {
    TestWorkstation test;
    fillInstitution(test);
    test.workstation.files[DataFile::TAJKapu].executeScript("alter table Tranzakciok drop column TAJ");
    Shell shell(test.workstation);
    shell.openAll();
    test.dialogue.takeAll(); // the box is held beside its check
    shell.show();
    EXPECT_EQ(shell.disabled(), words(u"adkez leval helyremenu osszemasol frissmenu"_s));
    EXPECT_FALSE(shell.button(1)->isEnabled());
    EXPECT_EQ(test.dialogue.boxes.size(), 1U);
}

TEST(MainWindow, ExitAsksOnceAndUnloadsEveryForm) {
    TestWorkstation test;
    fillInstitution(test);
    Shell shell(test.workstation);
    shell.show();
    test.dialogue.expectQuestion(exitQuestion, Answer::no, u"Kilép"_s);
    QTest::mouseClick(shell.button(6), Qt::LeftButton);
    EXPECT_TRUE(shell.window.isVisible());
    WorkForm form(test.workstation, nullptr);
    form.show();
    test.dialogue.expectQuestion(exitQuestion, Answer::yes, u"Kilép"_s);
    QTest::keyClick(&shell.window, Qt::Key_Q, Qt::ControlModifier);
    EXPECT_FALSE(form.isVisible());
    EXPECT_FALSE(shell.window.isVisible());
    EXPECT_EQ(shell.steps.count(u"end"_s), 1);
}

TEST(MainWindow, AnOpenerThatFailsGivesTheWindowBack) {
    TestWorkstation test;
    fillInstitution(test);
    Shell shell(test.workstation);
    shell.window.setOpener(u"int"_s, [&] {
        shell.window.setEnabled(false);
        throw Fault(fault::dataFileMissing, u"Nem található a tetmod.mdb állomány!"_s);
    });
    shell.show();
    test.dialogue.expect(u"Nem található a tetmod.mdb állomány!"_s, u"Hiba"_s);
    shell.action("int")->trigger();
    EXPECT_TRUE(test.dialogue.allShown());
    EXPECT_TRUE(shell.window.isEnabled());
}

} // namespace vandrel::test
