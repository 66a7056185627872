// The program as it is wired: which entries open which window, and what a fault does that nobody handled.
#include "app/program.h"

#include "app/application.h"
#include "settings/forms/gepazonform.h"
#include "support/test_workstation.h"

#include <QAction>
#include <QFile>
#include <QLineEdit>
#include <QTest>
#include <QTimer>

using namespace Qt::StringLiterals;

namespace vandrel::test {

TEST(Program, EveryLivingEntryOpensItsFormAndGetsTheWindowBack) {
    TestWorkstation test;
    test.data().executeScript("insert into intezet (Int_nev) values ('Rendelő');"
                              "update Gepazonosito set Gepazon='R01'");
    Program program(test.workstation, [] { return false; });
    ASSERT_TRUE(program.start());
    tetindul& window = program.mainWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    EXPECT_EQ(test.workstation.statusNote, &program.statusWindow());
    int opened = 0;
    for (const MenuEntry& entry : menuMap()) {
        auto* action = window.findChild<QAction*>(menuText(entry.name));
        if (entry.kind != MenuKind::form && entry.kind != MenuKind::newSheet) continue;
        if (!action->isEnabled()) continue;
        SCOPED_TRACE(std::string(entry.name));
        action->trigger();
        ASSERT_NE(program.currentForm(), nullptr);
        EXPECT_EQ(program.currentForm()->objectName(), menuText(entry.form));
        EXPECT_FALSE(window.isEnabled());
        program.currentForm()->close();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
        EXPECT_TRUE(window.isEnabled());
        ++opened;
    }
    EXPECT_EQ(opened, 14);
    // Their form is built, but not what they would do in it.
    for (const QString& name : {u"jav"_s, u"eujel"_s})
        EXPECT_FALSE(window.findChild<QAction*>(name)->isEnabled()) << name.toStdString();
    QTest::mouseDClick(window.findChild<QLineEdit*>(u"datum"_s), Qt::LeftButton);
    ASSERT_NE(program.currentForm(), nullptr);
    EXPECT_EQ(program.currentForm()->objectName(), u"kornyform"_s);
    EXPECT_FALSE(program.ended());
    // Closing the window ends the program at once, although a form is open.
    QTimer::singleShot(0, &window, &QWidget::close);
    EXPECT_EQ(QCoreApplication::exec(), 0);
    EXPECT_TRUE(program.ended());
}

// Nothing is shown before the new sheet has its content, and nothing stays when it gets none.
TEST(Program, NewSheetThatCannotBeMadeLeavesTheMainWindow) {
    TestWorkstation test;
    test.data().executeScript("insert into intezet (Int_nev) values ('Rendelő');"
                              "update Gepazonosito set Gepazon='R01';"
                              "update AZONOSIT set END_AZON='R019999999'");
    Program program(test.workstation, [] { return false; });
    ASSERT_TRUE(program.start());
    tetindul& window = program.mainWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    test.dialogue.expect(u"Elfogytak az adatlap-azonosítók: az utolsó kiadott R019999999."_s, u"Hiba"_s);
    window.findChild<QAction*>(u"adfelv"_s)->trigger();
    EXPECT_TRUE(window.isEnabled());
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_EQ(program.currentForm(), nullptr);
}

TEST(Program, DoesNotStartWithoutItsData) {
    TestWorkstation test;
    ASSERT_TRUE(QFile::remove(test.path(u"beav.mdb"_s)));
    Program program(test.workstation, [] { return false; });
    test.dialogue.expect(u"Nem található a beav.mdb állomány!"_s, u"Hiba"_s);
    EXPECT_FALSE(program.start());
    EXPECT_FALSE(program.mainWindow().isVisible());
}

TEST(Program, CountersBehindAStoredSheetAreMendedAtTheStartButNotBesideAnotherInstance) {
    for (const bool otherRuns : {true, false}) {
        TestWorkstation test;
        test.data().executeScript(
            "update Gepazonosito set Gepazon='R01'; update AZONOSIT set END_AZON='R010000007';"
            "insert into BETEG (AZONOSITO, SZAKREND, NAPLO) values ('R010000008', 'U', '5')");
        Program program(test.workstation, [otherRuns] { return otherRuns; });
        EXPECT_TRUE(program.start());
        EXPECT_EQ(firstText(test.data(), "select END_AZON from AZONOSIT"),
                  otherRuns ? u"R010000007"_s : u"R010000008"_s);
    }
}

TEST(Program, UnhandledFaultsAreShownAndOthersAreNot) {
    ExpectedDialogue dialogue;
    dialogue.expect(u"A lemez megtelt: x"_s, u"Hiba"_s);
    EXPECT_FALSE(deliverShowingFaults(
        &dialogue, []() -> bool { throw Fault(fault::diskFull, u"A lemez megtelt: x"_s); }));
    EXPECT_TRUE(deliverShowingFaults(&dialogue, [] { return true; }));
    EXPECT_THROW(deliverShowingFaults(&dialogue, []() -> bool { throw std::runtime_error("mistake"); }),
                 std::runtime_error);
}

} // namespace vandrel::test
