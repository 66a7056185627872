// Which data files are known to be whole, what makes one unknown again, and what a damaged one does.
#include "foundation/file_checks.h"

#include "reports/report_run.h"
#include "support/report_data.h"

#include <QDir>
#include <QFile>

#include <thread>

using namespace Qt::StringLiterals;

namespace vandrel::test {

namespace {

constexpr DataFile file = DataFile::tetdata;
using Result = BackgroundCheck::Result;

// A month of sheets and an index that contradicts its table: what a quick check does not see.
void damageIndex(TestWorkstation& test) {
    test.data().executeScript("pragma writable_schema=on;"
                              "update sqlite_master set rootpage=(select rootpage from sqlite_master where "
                              "name='EUSZOLG_Azonosito') "
                              "where name='BETEG_F_DATUM'; pragma writable_schema=reset;");
    test.workstation.files.closeAll();
}

} // namespace

TEST(FileChecks, AFileStaysKnownUntilSomebodyElseWrites) {
    TestWorkstation test;
    FileChecks& checks = test.workstation.files.checks();
    EXPECT_FALSE(checks.knownWhole(file));
    EXPECT_EQ(checks.check(file, {}), Result::whole);
    EXPECT_TRUE(checks.knownWhole(file));
    putSheet(test, 1);
    EXPECT_TRUE(checks.knownWhole(file)) << "our own store";
    {
        Database other(test.path(u"tetdata.mdb"_s));
        other.executeScript("update BETEG set NAPLO='7'");
    }
    EXPECT_FALSE(checks.knownWhole(file));
    EXPECT_EQ(checks.check(file, {}), Result::whole);
    test.workstation.files.close(file);
    EXPECT_FALSE(checks.knownWhole(file)) << "may have been replaced";

    // In idle moments, one file after the other.
    for (int i = 0; i < 500 && !checks.knownWhole(DataFile::diagnos); ++i) {
        checks.goOn(filesOfLists);
        std::this_thread::sleep_for(std::chrono::milliseconds(2));
    }
    for (const DataFile listed : filesOfLists)
        EXPECT_TRUE(checks.knownWhole(listed));
}

TEST(FileChecks, AStoreDoesNotWaitForTheReading) {
    TestWorkstation test;
    test.data().executeScript("begin; with recursive n(i) as (select 1 union all select i+1 from n where "
                              "i<60000) insert into BETEG "
                              "(AZONOSITO, F_DATUM, FLOPPY, JAV, SZAKREND, NAPLO) select printf('TST%07d', "
                              "i), '2008.03.10.', 0, '0', "
                              "'010000001', i from n; commit;");
    FileChecks& checks = test.workstation.files.checks();
    using Clock = std::chrono::steady_clock;
    const auto before = Clock::now();
    EXPECT_EQ(checks.check(file, {}), Result::whole);
    const auto whole = Clock::now() - before;
    test.workstation.files.close(file);
    test.data(); // open again
    int interrupted = 0;
    for (int i = 0; i < 5; ++i) {
        checks.goOn({&file, 1});
        std::this_thread::sleep_for(whole / 5);
        putSheet(test, 100'000 + i); // several commits in the middle of the reading; none is refused
        interrupted += checks.knownWhole(file) ? 0 : 1;
    }
    EXPECT_GT(interrupted, 0);
    EXPECT_EQ(checks.check(file, {}), Result::whole);
    // A reading that another program's lock keeps from its work says so.
    test.workstation.files.close(file);
    Database other(test.path(u"tetdata.mdb"_s));
    test.data();
    other.executeScript("begin exclusive");
    EXPECT_EQ(faultNumberOf([&] { checks.check(file, {}); }), fault::dataFileInUse);
}

TEST(FileChecks, TheUserDecidesAboutADamagedFile) {
    TestWorkstation test;
    addReportMasterData(test);
    QDir(test.directory.path()).mkdir(u"cel"_s);
    test.workstation.reportTarget = test.path(u"cel/"_s);
    for (int key = 1; key <= 5; ++key)
        putSheet(test, key, {}, {{"'11041'", "1"}});
    damageIndex(test);
    const QString question = u"A(z) tetdata.mdb állomány sérült! Adatlapok vagy egyes adatok hiányozhatnak "
                             u"belőle, ezért a jelentés "
                             "hiányos vagy hibás lehet.\nFolytatja így is?"_s;
    const QString march = u"2008.03"_s;
    ReportProgress quiet;
    test.dialogue.expectQuestion(question, Answer::no, u"Hiba"_s, Icon::warning);
    EXPECT_EQ(runReport(test.workstation, {u"0"_s, march, march, {}}, quiet).result,
              ReportOutcome::Result::notStarted);
    EXPECT_EQ(firstText(test.data(), "select sum(FLOPPY) from BETEG not indexed"), u"0"_s);
    test.dialogue.takeAll(); // with yes
    EXPECT_NE(runReport(test.workstation, {u"0"_s, march, march, {}}, quiet).result,
              ReportOutcome::Result::notStarted);
    EXPECT_EQ(test.dialogue.boxes.at(0).text, question);
}

} // namespace vandrel::test
