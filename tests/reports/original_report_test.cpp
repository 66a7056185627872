// The whole road of the original report on real files: every byte of the report and its note, the marks, and
// what each fault leaves behind.
#include "platform/database.h"
#include "reports/report_run.h"
#include "reports/write_back.h"
#include "support/report_data.h"

#include <QFile>
#include <QFileInfo>
#include <QProcess>

using namespace Qt::StringLiterals;

using namespace vandrel;
using namespace vandrel::test;

namespace {

using Result = ReportOutcome::Result;

const QString writerBroke = u"Hiba történt az adatkiírás során!"_s;
const QString writerTitle = u"Hiba mentés közben"_s;
const QString selectionBroke = u"Hiba történt! Leválogatás nem futtatható"_s;
const QString noDataText = u"Nincs a feltételeknek megfelelő adat!\nLehetséges hibák: \n\t - a "
                           "megadott dátumintervallumra a jelentés "
                           "egyszer más elkészült, a floppy mezők visszaírása szükséges"_s;

class NoteRecorder : public StatusNote {
  public:
    void showNote(const QString& text, bool buttonEnabled) override {
        shown << text << (buttonEnabled ? "1" : "0");
    }
    QStringList shown;
};

struct Recorder : ReportProgress {
    void started() override {
        calls << u"started"_s;
        at = selecting;
    }
    void noData() override { calls << u"noData"_s; }
    void selectedSheets(qint64 sheets) override {
        calls << u"selected %1"_s.arg(sheets);
        at = preparing;
    }
    void outputRecords(qint64 records) override {
        at = writing;
        calls << u"records %1"_s.arg(records);
        if (atWriting) atWriting();
    }
    void procedures(qint64 positions) override { calls << u"procedures %1"_s.arg(positions); }
    void moved(const QString& stage, qint64 position, qint64 total) override {
        last = stage + u"%1/%2"_s.arg(position).arg(total);
        if (position == total) calls << last;
    }
    QStringList calls;
    QString last;
    std::function<void()> atWriting;
    enum Stage { before, selecting, preparing, writing } at = before;
};

class OriginalReport : public testing::Test {
  protected:
    explicit OriginalReport(const QString& archiver = {}) : test(archiver) {
        addReportMasterData(test);
        QDir(test.directory.path()).mkdir(u"cel"_s);
        test.workstation.reportTarget = test.path(u"cel/"_s);
    }

    ReportOutcome run(const QString& from = u"2008.03"_s, const QString& to = u"2008.03"_s) {
        const ReportOutcome outcome = runReport(test.workstation, {u"0"_s, from, to, {}}, recorder);
        test.packer.waitForFinished();
        EXPECT_TRUE(test.dialogue.allShown());
        return outcome;
    }
    QString target(const QString& name) const { return test.path(u"cel/"_s + name); }
    QString amb() const { return test.path(u"tetN123.amb"_s); }
    // Keys of the marked sheets, in stored order.
    QString marked(const std::string& mark = "FLOPPY") {
        return firstText(test.data(), "select group_concat(n, ' ') from (select cast(substr(AZONOSITO, 4) as "
                                      "integer) as n from BETEG where " +
                                          mark + "=1 order by rowid)");
    }
    void addPlain(int key, int lines = 1) {
        putSheet(test, key, {}, std::vector<LineData>(std::size_t(lines), {"'11041'", "1"}));
    }

    TestWorkstation test;
    Recorder recorder;
};

// Sheets of 0, 1, 6, 7, 8 and 13 lines, with every kind of emptiness the tables know.
void addGoldenSheets(TestWorkstation& test) {
    const std::string zeros =
        "ORVKOD='4242', TERITES='01', TerReszlDij=0, ELL_TIP='1', TOVA='0', LABOR='0', RTG='0', CTMR='0', "
        "FIZIO='0', K_KEP='0', UTKLTG='0', BALESET1='0', BALESET2='0', RECEPT='0', GYOGYSEG='0', "
        "GYOGYFURD='0', ElszNyil='0', ";
    const auto lines = [](std::size_t count, const LineData& same, const std::vector<LineData>& last) {
        std::vector<LineData> all(count, same);
        all.insert(all.end(), last.begin(), last.end());
        return all;
    };
    putSheet(test, 1);
    putSheet(test, 2,
             "PaciensId=1, ORVKOD='12345', IGENYLO='123456789', BeutOrvos='54321', BeutIndok='Z11', "
             "BeutaloKelte='2008.02.25.', F_DATUM='2008.03.31.', F_IDO='08:15:00', TERITES='01', "
             "TerReszlDij=1500, ELL_TIP='1', DIAG1='I10H0', DIAG2='J060', DIAG3=' ', DIAG4='', TOVA='0', "
             "LABOR='0', RTG='1', CTMR='2', FIZIO='3', K_KEP='4', UTKLTG='5', BALESET1='0', BALESET2='0', "
             "RECEPT='1', GYOGYSEG='12', GYOGYFURD='0', ElszNyil='10', VizitDij='03', VizitdijFizMod='1'",
             {{"'11041'", "1", "'A'"}});
    putSheet(test, 3,
             "SZAKREND='020000002', NAPLO='A/7', PaciensId=2, ORVKOD='777', IGENYLO=' ', BeutIndok=' ', "
             "F_DATUM='2008.03.01.', F_IDO='23:59:00', TERITES='0R', TerReszlDij=12.5, ELL_TIP='2', "
             "DIAG1='        ', TOVA='1', LABOR='0', RTG='0', CTMR='0', FIZIO='0', K_KEP='0', UTKLTG='0', "
             "BALESET1='1', BALESET2=' ', RECEPT='', GYOGYSEG=' ', GYOGYFURD='0', ElszNyil=' '",
             {{"'11041'", "1", "'A'"},
              {"'12345'", "2", "'A'"},
              {"'ZZZZZ'", "1", "'P'"},
              {"'11041'", "10", "'A'"},
              {"' '", "1", "'A'"},
              {"'29000'", "1"}});
    putSheet(test, 9,
             zeros + "SZAKREND='030000003', PaciensId=2, F_DATUM='2008.03.15.', F_IDO='12:00:00', "
                     "DIAG1='M54'",
             lines(6, {"'12345'", "1"}, {{"'12345'", "3"}}));
    putSheet(test, 10, zeros + "SZAKREND='020000002', PaciensId=99, F_DATUM='2008.03.02.', F_IDO='07:00:00'",
             lines(6, {"'29000'", "2"}, {{"'11041'", "1", "'A'"}, {"'a1é'", "1", "'B'"}}));
    putSheet(test, 11, "SZAKREND='U4', PaciensId=1, F_DATUM='2008.03.09.', TERITES='01'",
             lines(12, {"'11041'", "1"}, {{"'11041'", "99"}}));
    // Not due: another month on either side, a correction, one that was reported.
    int key = 20;
    for (const char* notDue : {"F_DATUM='2008.02.29.'", "F_DATUM='2008.04.01.'", "JAV='1'", "FLOPPY=1"})
        putSheet(test, key++, notDue, {{"'11041'", "1"}});
}

} // namespace

TEST_F(OriginalReport, EveryByteOfTheReportTheNoteAndTheArchive) {
    addGoldenSheets(test);
    NoteRecorder notes;
    test.workstation.statusNote = &notes;
    const ReportOutcome outcome = run();
    EXPECT_EQ(outcome.result, Result::writerEnded);
    EXPECT_TRUE(outcome.complete);
    EXPECT_EQ(outcome.sheets, 6);
    EXPECT_EQ(outcome.records, 9);
    EXPECT_EQ(outcome.procedures, 34);
    EXPECT_EQ(recorder.calls.join('|'_L1),
              u"started|selected 6|Előkészítés: 6/6|records 9|procedures 34|Kiírás: 9/9"_s);

    const QByteArray golden = fileBytes(QStringLiteral(VANDREL_GOLDEN_DIR "/original.amb"));
    const QByteArray written = fileBytes(amb());
    const QList<QByteArray> goldenLines = golden.split('\n'), writtenLines = written.split('\n');
    for (qsizetype i = 0; i < std::min(goldenLines.size(), writtenLines.size()); ++i)
        EXPECT_EQ(writtenLines[i].toStdString(), goldenLines[i].toStdString()) << "line " << i + 1;
    EXPECT_EQ(written, golden);
    EXPECT_EQ(fileBytes(test.path(u"kuldo.txt"_s)).toStdString(),
              fileBytes(QStringLiteral(VANDREL_GOLDEN_DIR "/kuldo.txt")).toStdString());
    EXPECT_EQ(fileBytes(target(u"kuldo.txt"_s)), fileBytes(QStringLiteral(VANDREL_GOLDEN_DIR "/kuldo.txt")));
    EXPECT_EQ(QDir(target({})).entryList(QDir::Files, QDir::Name).join(' '_L1),
              u"N123.id id.txt kuldo.txt tetN123.arj"_s);
    EXPECT_EQ(QFileInfo(target(u"N123.id"_s)).size(), 0);

    // The archive holds the same bytes under the bare name.
    QTemporaryDir unpacked;
    QProcess arj;
    arj.setWorkingDirectory(unpacked.path());
    arj.start(u"arj"_s, {u"x"_s, u"-y"_s, target(u"tetN123.arj"_s)});
    ASSERT_TRUE(arj.waitForFinished());
    EXPECT_EQ(QDir(unpacked.path()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot).join(' '_L1),
              u"tetN123.amb"_s);
    EXPECT_EQ(fileBytes(unpacked.filePath(u"tetN123.amb"_s)), golden);

    EXPECT_EQ(notes.shown.join('|'_L1),
              u"Adatbázis tömörítése...|0|Adatbázis tömörítése kész, a jelentés elkészült!\n"
              "Kérem várjon, amíg a felbukkanó ablak automatikusan bezáródik!|1"_s);
    // The sheet without lines is marked as well.
    EXPECT_EQ(marked(), u"1 2 3 9 10 11 23"_s);

    // A second run finds nothing and empties the scratch rows; write-back makes the period due again.
    test.dialogue.expect(noDataText, u"Hiba!"_s);
    EXPECT_EQ(run().result, Result::noData);
    EXPECT_EQ(recorder.calls.last(), u"noData"_s);
    EXPECT_EQ(firstText(test.workstation.files[DataFile::tetseged], "select count(*) from Leval_er"), u"0"_s);
    test.data().execute("update BETEG set FLOPPY=0 where AZONOSITO='TST0000023'");
    test.dialogue.expect(u"Kész az adatvisszaállítás!"_s, programTitle, Icon::information);
    EXPECT_EQ(writeBackMarks(test.workstation, u"2008.03"_s, u"2008.03"_s, WriteBack::original, {}).sheets,
              6);
    test.data().execute("update BETEG set JAV='1' where AZONOSITO='TST0000023'");
    EXPECT_TRUE(run().complete);
    EXPECT_EQ(fileBytes(amb()), golden);
}

TEST_F(OriginalReport, TheGrandTotalRunsOn) {
    addPlain(1);
    putSheet(test, 2, {}, {{"'00005'", "1"}});
    EXPECT_TRUE(run().complete);
    const QByteArray note = fileBytes(test.path(u"kuldo.txt"_s));
    EXPECT_TRUE(note.contains("2               15\r\n"));
    EXPECT_TRUE(note.contains("                             \xD6sszesen:                25\r\n"))
        << note.toStdString();
}

TEST_F(OriginalReport, ALargeMonthCrossesEveryPortion) {
    test.data().executeScript(
        "begin; with recursive n(i) as (select 1 union all select i+1 from n where i<9000) insert into BETEG "
        "(AZONOSITO, F_DATUM, FLOPPY, JAV, SZAKREND, NAPLO) select printf('TST%07d', i), "
        "printf('2008.03.%02d.', 31 - i % 31), 0, '0', '010000001', i from n;"
        "insert into EUSZOLG select AZONOSITO, '11041', 1, 'A' from BETEG; commit;");
    // A turn wherever one could be due: none of the three walks goes without.
    int turns[4] = {};
    test.workstation.turnEvery = std::chrono::milliseconds(0);
    test.workstation.serveEvents = [&] { ++turns[recorder.at]; };
    const ReportOutcome outcome = run();
    EXPECT_TRUE(outcome.complete);
    EXPECT_EQ(outcome.records, 9000);
    EXPECT_GE(turns[Recorder::selecting], 2 * (9000 / 64));
    EXPECT_GE(turns[Recorder::preparing], 9000);
    EXPECT_GE(turns[Recorder::writing], 9000);
    EXPECT_EQ(firstText(test.data(), "select count(*) from BETEG where FLOPPY=1"), u"9000"_s);
    const QList<QByteArray> lines = fileBytes(amb()).split('\n');
    ASSERT_EQ(lines.size(), 8 + 9000 + 1);
    for (int i = 0; i < 9000; ++i) // stored order, whatever the dates say
        ASSERT_EQ(lines[8 + i].mid(45, 8).toInt(), i + 1);
}

TEST_F(OriginalReport, TheHundredAndFirstLineBreaksTheSelection) {
    addPlain(1);
    addPlain(2, 100);
    addPlain(3, 101);
    addPlain(4);
    test.dialogue.expect(selectionBroke + '9'_L1);
    EXPECT_EQ(run().result, Result::broken);
    EXPECT_EQ(marked(), u"1 2"_s);
    EXPECT_EQ(firstText(test.workstation.files[DataFile::tetseged], "select count(*) from Leval_er"),
              u"18"_s);
    EXPECT_FALSE(QFile::exists(amb()));
}

TEST_F(OriginalReport, StoreFaultsKeepTheMarksSetSoFar) {
    for (int key = 1; key <= 3; ++key)
        addPlain(key);
    // The second sheet's mark is refused: its number comes through, the first one stays marked.
    test.data().executeScript("create trigger refuse before update on BETEG when old.AZONOSITO='TST0000002' "
                              "begin select raise(abort, 'no'); end");
    test.dialogue.expect(selectionBroke + u"3421"_s);
    EXPECT_EQ(run().result, Result::broken);
    EXPECT_EQ(marked(), u"1"_s);
    test.data().executeScript("drop trigger refuse");

    // A scratch file that may not grow is a full disk: what was not written is not marked.
    Database& scratch = test.workstation.files[DataFile::tetseged];
    test.data().executeScript("begin");
    for (int key = 4; key <= 600; ++key)
        addPlain(key, 30);
    test.data().executeScript("commit");
    scratch.executeScript("delete from Leval_er; vacuum; pragma max_page_count=1;");
    scratch.executeScript("pragma max_page_count=" +
                          std::to_string(firstText(scratch, "pragma page_count").toInt() + 20));
    test.dialogue.expect(selectionBroke + u"3026"_s);
    EXPECT_EQ(run().result, Result::broken);
    EXPECT_EQ(firstText(test.data(), "select FLOPPY from BETEG where AZONOSITO='TST0000600'"), u"0"_s);
    EXPECT_EQ(test.data().quickCheck(), u"ok"_s);
    scratch.executeScript("pragma max_page_count=1000000");

    // A lost table of the dictionary spoils the note, not the report file, which needs no points.
    test.data().executeScript("update BETEG set FLOPPY=0; delete from BETEG where AZONOSITO>'TST0000003'");
    test.workstation.files[DataFile::beav].executeScript("drop table BEAV");
    test.dialogue.expect(writerBroke + u"3078"_s, writerTitle);
    EXPECT_FALSE(run().complete);
    EXPECT_EQ(fileBytes(amb()).size(), fileBytes(amb()).indexOf("\r\n\r\n") + 4 + 3 * 196);

    // A scratch file in which a table is missing is made anew.
    addProcedures(test);
    test.data().executeScript("update BETEG set FLOPPY=0");
    scratch.executeScript("drop table Leval_er");
    EXPECT_TRUE(run().complete);
}

// Marks become durable after the files and before success is said; no other program sees one earlier.
TEST_F(OriginalReport, MarksComeLast) {
    struct Look : StatusNote {
        void showNote(const QString&, bool) override {
            marks << firstText(other, "select sum(FLOPPY) from BETEG");
        }
        explicit Look(const QString& path) : other(path) {}
        Database other;
        QStringList marks;
    } look(test.path(u"tetdata.mdb"_s));
    for (int key = 1; key <= 3; ++key)
        addPlain(key);
    test.workstation.statusNote = &look;
    EXPECT_TRUE(run().complete);
    EXPECT_EQ(look.marks.join('|'_L1), u"0|3"_s);
}

// Two programs on one folder: while one makes its report, the other's run ends with the box of a file in use.
TEST_F(OriginalReport, OnlyOneProgramReportsASheet) {
    for (int key = 1; key <= 300; ++key)
        addPlain(key);
    ExpectedDialogue otherDialogue;
    Workstation other(test.directory.path(), otherDialogue, test.clock, test.packer);
    other.reportTarget = test.workstation.reportTarget;
    ReportProgress quiet;
    const QString march = u"2008.03"_s;
    ReportOutcome first;
    recorder.atWriting = [&] {
        otherDialogue.expect(selectionBroke + u"3045"_s);
        first = runReport(other, {u"0"_s, march, march, {}}, quiet);
    };
    EXPECT_EQ(run().records, 300);
    EXPECT_EQ(first.result, Result::broken);
    EXPECT_EQ(first.records, 0);
    otherDialogue.expect(noDataText, u"Hiba!"_s);
    EXPECT_EQ(runReport(other, {u"0"_s, march, march, {}}, quiet).result, Result::noData);
    EXPECT_TRUE(fileBytes(amb()).contains("\r\n0000300\r\n"));
}

TEST_F(OriginalReport, NoInstitutionNoReport) {
    addPlain(1);
    test.data().executeScript("delete from intezet");
    makeFile(test.path(u"tet.amb"_s));
    test.dialogue.expect(u"Nincsenek kitöltve az intézeti adatok!"_s, u"Hiba"_s);
    EXPECT_FALSE(run().complete);
    EXPECT_TRUE(QDir(test.directory.path()).entryList({u"*.amb"_s}).isEmpty());
}

TEST_F(OriginalReport, OnlySheetsWithoutLines) {
    addPlain(1, 0);
    test.dialogue.expect(u"Nincs adat![Hiba: ErFl-01]"_s, u"Hiba"_s);
    EXPECT_FALSE(run().complete);
    EXPECT_EQ(marked(), u"1"_s);
    EXPECT_TRUE(fileBytes(amb()).contains("\r\n0000000\r\n"));
    EXPECT_TRUE(fileBytes(amb()).endsWith("33333333 \r\n\r\n"));
}

TEST_F(OriginalReport, TargetThatIsNotReady) {
    addPlain(1);
    const QStringList before = QDir(test.directory.path()).entryList();
    for (const QString& place : {u"a:\\"_s, u"A:\\jelentes\\"_s, u"nincs/ilyen/"_s, test.path(u"nincs/"_s)}) {
        test.workstation.reportTarget = place;
        test.dialogue.expect(u"Nem található az elérési útvonal!"_s);
        EXPECT_EQ(run().result, Result::notStarted) << place.toStdString();
    }
    EXPECT_EQ(QDir(test.directory.path()).entryList(), before); // no file of an odd name
    EXPECT_FALSE(QFile::exists(u"a:\\id.txt"_s));
    EXPECT_EQ(marked(), QString());

    QDir(target({})).mkdir(u"id.txt"_s); // a place that cannot be written
    test.workstation.reportTarget = target({});
    test.dialogue.expect(selectionBroke + u"75"_s);
    EXPECT_EQ(run().result, Result::notStarted);
    EXPECT_TRUE(recorder.calls.isEmpty());
}

TEST_F(OriginalReport, FaultsOfTheWriter) {
    const auto makeFolder = [](const QString& path) { QDir().mkpath(path); };
    const auto linkFull = [](const QString& path) { QFile::link(u"/dev/full"_s, path); };
    const QString note = test.path(u"kuldo.txt"_s);
    const QString lostTarget = u"A megadott útvonal hibás!"_s;
    const struct {
        const char* what;
        std::function<void()> spoil;
        QString box, title;
        bool complete;
    } cases[] = {
        {"the target goes away", [&] { QDir(target({})).removeRecursively(); }, lostTarget, programTitle,
         false},
        {"the report file does not open", [&] { makeFolder(amb()); }, writerBroke + u"52"_s, writerTitle,
         false},
        {"the disk of the report file is full", [&] { linkFull(amb()); }, writerBroke + u"61"_s, writerTitle,
         false},
        {"the disk of the note is full", [&] { linkFull(note); }, writerBroke + u"61"_s, writerTitle, false},
        {"the marker cannot be made: on to the next statement", [&] { makeFolder(target(u"N123.id"_s)); },
         QString(), QString(), true},
        {"the note cannot be copied: ignored", [&] { makeFolder(target(u"kuldo.txt"_s)); }, QString(),
         QString(), true},
        {"the target's disk is full: ignored", [&] { linkFull(target(u"kuldo.txt"_s)); }, QString(),
         QString(), true},
    };
    const auto clean = [&] {
        test.data().executeScript("update BETEG set FLOPPY=0");
        for (const QString& path : {amb(), note}) {
            QDir(path).removeRecursively();
            QFile::remove(path);
        }
        QDir(target({})).removeRecursively();
        QDir().mkpath(target({}));
    };
    addPlain(1);
    ASSERT_TRUE(run().complete);
    const QByteArray whole = fileBytes(amb()), wholeNote = fileBytes(note);
    for (const auto& fault : cases) {
        SCOPED_TRACE(fault.what);
        clean();
        recorder.atWriting = fault.spoil;
        if (!fault.box.isEmpty()) test.dialogue.expect(fault.box, fault.title);
        const ReportOutcome outcome = run();
        EXPECT_EQ(outcome.result, Result::writerEnded);
        EXPECT_EQ(outcome.complete, fault.complete);
        EXPECT_EQ(marked(), u"1"_s);
        EXPECT_EQ(QDir(target({})).exists(), fault.box != lostTarget) << "nothing makes the folder anew";
        clean();
        recorder.atWriting = nullptr; // released, the same report comes out
        EXPECT_TRUE(run().complete);
        EXPECT_EQ(fileBytes(amb()), whole);
        EXPECT_EQ(fileBytes(note), wholeNote);
    }
}

struct NoArchiver : OriginalReport {
    NoArchiver() : OriginalReport(u"/nincs/arj"_s) {}
};

TEST_F(NoArchiver, TheRunStillEndsWell) {
    addPlain(1);
    makeFile(target(u"tetN123.arj"_s)); // last month's
    NoteRecorder notes;
    test.workstation.statusNote = &notes;
    EXPECT_TRUE(run().complete);
    EXPECT_TRUE(notes.shown.value(2).startsWith(u"Adatbázis tömörítése kész, a jelentés elkészült!"_s));
    EXPECT_FALSE(QFile::exists(target(u"tetN123.arj"_s)));
    EXPECT_TRUE(QFile::exists(target(u"kuldo.txt"_s)));
}

TEST_F(OriginalReport, ABlankTargetIsTheWorkingFolder) {
    addPlain(1);
    test.workstation.reportTarget = u" "_s;
    EXPECT_TRUE(run().complete);
    EXPECT_GT(fileBytes(test.path(u"kuldo.txt"_s)).size(), 500); // not copied over itself
    EXPECT_TRUE(QFile::exists(test.path(u"tetN123.arj"_s)));
}

TEST_F(OriginalReport, ModesWithoutAWriterMarkNothing) {
    putSheet(test, 1, "JAV='1'", {{"'11041'", "1"}});
    for (const QString& mode : {u"1"_s, u"E"_s}) {
        test.dialogue.expect(u"Ez a jelentés ebben a változatban még nem készíthető el!"_s, programTitle,
                             Icon::information);
        const QString period = u"2008.03"_s;
        EXPECT_EQ(runReport(test.workstation, {mode, period, period, period}, recorder).result,
                  Result::notBuilt);
    }
    EXPECT_EQ(marked("FLOPPY2"), QString());
}
