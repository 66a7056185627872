// A report that is killed on its way has marked nothing, and the next run reports every sheet; killed after
// the success text it has marked all.
#include "child_process.h"

#include "reports/report_run.h"
#include "support/report_data.h"

#include <QDir>

using namespace Qt::StringLiterals;

namespace vandrel::test {

namespace {

constexpr int sheets = 9000;

// Kills the process at one place of the run.
struct Killer : ReportProgress, StatusNote {
    enum Place { halfPrepared, prepared, halfWritten, packing, success };
    explicit Killer(Place where) : place(where) {}

    void selectedSheets(qint64) override { m_stage = halfPrepared; }
    void outputRecords(qint64) override {
        if (place == prepared) raise(SIGKILL);
        m_stage = halfWritten;
    }
    // Every sheet and every record gives a turn; the last ones are near.
    void turn() {
        if (m_stage == place && ++m_turns == sheets - 500) raise(SIGKILL);
    }
    void showNote(const QString&, bool buttonEnabled) override {
        if (place == (buttonEnabled ? success : packing)) raise(SIGKILL);
    }
    const Place place;

  private:
    std::optional<Place> m_stage;
    int m_turns = 0;
};

} // namespace

TEST(Kill, WhileAMonthIsReported) {
    TestWorkstation test;
    addReportMasterData(test);
    QDir(test.directory.path()).mkdir(u"cel"_s);
    test.workstation.reportTarget = test.path(u"cel/"_s);
    test.data().executeScript(
        "begin; with recursive n(i) as (select 1 union all select i+1 from n where i<9000) insert into BETEG "
        "(AZONOSITO, F_DATUM, FLOPPY, JAV, SZAKREND, NAPLO) select printf('TST%07d', i), '2008.03.10.', 0, "
        "'0', "
        "'010000001', i from n; insert into EUSZOLG select AZONOSITO, '11041', 1, 'A' from BETEG; commit;");
    const auto report = [&](ReportProgress& progress) {
        const QString march = u"2008.03"_s;
        return runReport(test.workstation, {u"0"_s, march, march, {}}, progress);
    };
    for (const Killer::Place place :
         {Killer::halfPrepared, Killer::prepared, Killer::halfWritten, Killer::packing, Killer::success}) {
        SCOPED_TRACE(place);
        test.data().execute("update BETEG set FLOPPY=0");
        test.workstation.files.closeAll();
        ChildProcess child([&](const Say&) {
            Killer killer(place);
            test.workstation.statusNote = &killer;
            test.workstation.serveEvents = [&killer] { killer.turn(); };
            test.workstation.turnEvery = std::chrono::milliseconds(0);
            report(killer);
            return 0;
        });
        child.lines();
        EXPECT_EQ(child.exitCode(), -1) << "was not killed";
        EXPECT_EQ(firstText(test.data(), "select sum(FLOPPY) from BETEG").toInt(),
                  place == Killer::success ? sheets : 0);
    }
    test.data().execute("update BETEG set FLOPPY=0");
    ReportProgress quiet;
    EXPECT_EQ(report(quiet).records, sheets);
}

} // namespace vandrel::test
