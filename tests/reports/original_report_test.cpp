// The whole road of the original report on real files: every byte of the report and its note, the marks, and
// what each fault leaves behind.
#include "reports/report_run.h"
#include "reports/write_back.h"
#include "support/report_data.h"

#include <QFile>
#include <QFileInfo>
#include <QProcess>

using namespace vandrel;
using namespace vandrel::test;

namespace {

using Result = ReportOutcome::Result;

const QString writerBroke = QStringLiteral("Hiba történt az adatkiírás során!");
const QString writerTitle = QStringLiteral("Hiba mentés közben");
const QString selectionBroke = QStringLiteral("Hiba történt! Leválogatás nem futtatható");
const QString noDataText = QStringLiteral("Nincs a feltételeknek megfelelő adat!\nLehetséges hibák: \n\t - a "
                                          "megadott dátumintervallumra a jelentés "
                                          "egyszer más elkészült, a floppy mezők visszaírása szükséges");

class NoteRecorder : public StatusNote {
  public:
    void showNote(const QString& text, bool buttonEnabled) override {
        shown << text << (buttonEnabled ? "1" : "0");
    }
    QStringList shown;
};

struct Recorder : ReportProgress {
    void started() override { calls << QStringLiteral("started"); }
    void noData() override { calls << QStringLiteral("noData"); }
    void selectedSheets(qint64 sheets) override { calls << QStringLiteral("selected %1").arg(sheets); }
    void outputRecords(qint64 records) override {
        calls << QStringLiteral("records %1").arg(records);
        if (atWriting) atWriting();
    }
    void procedures(qint64 positions) override { calls << QStringLiteral("procedures %1").arg(positions); }
    void moved(const QString& stage, qint64 position, qint64 total) override {
        last = stage + QStringLiteral("%1/%2").arg(position).arg(total);
        if (position == total) calls << last;
    }
    QStringList calls;
    QString last;
    std::function<void()> atWriting;
};

class OriginalReport : public testing::Test {
  protected:
    OriginalReport() {
        addReportMasterData(test);
        QDir(test.directory.path()).mkdir(QStringLiteral("cel"));
        test.workstation.reportTarget = test.path(QStringLiteral("cel/"));
    }

    ReportOutcome run(const QString& from = QStringLiteral("2008.03"),
                      const QString& to = QStringLiteral("2008.03")) {
        const ReportOutcome outcome =
            runReport(test.workstation, {QStringLiteral("0"), from, to, {}}, recorder);
        test.packer.waitForFinished();
        EXPECT_TRUE(test.dialogue.allShown());
        return outcome;
    }
    QString target(const QString& name) const { return test.path(QStringLiteral("cel/") + name); }
    QString amb() const { return test.path(QStringLiteral("tetN123.amb")); }
    // Keys of the marked sheets, in stored order.
    QString marked(const std::string& mark = "FLOPPY") {
        return firstText(test.data(), "select group_concat(n, ' ') from (select cast(substr(AZONOSITO, 4) as "
                                      "integer) as n from BETEG where " +
                                          mark + "=1 order by rowid)");
    }
    void addPlain(int key, int lines = 1) {
        addSheet(test, key, {}, std::vector<LineData>(std::size_t(lines), {"'11041'", "1"}));
    }

    TestWorkstation test;
    Recorder recorder;
};

// Sheets of 0, 1, 6, 7, 8 and 13 lines, with every kind of emptiness the tables know.
void addGoldenSheets(TestWorkstation& test) {
    const std::vector<std::pair<std::string, std::string>> zeros = {
        {"ORVKOD", "'4242'"}, {"TERITES", "'01'"}, {"TerReszlDij", "0"}, {"ELL_TIP", "'1'"},
        {"TOVA", "'0'"},      {"LABOR", "'0'"},    {"RTG", "'0'"},       {"CTMR", "'0'"},
        {"FIZIO", "'0'"},     {"K_KEP", "'0'"},    {"UTKLTG", "'0'"},    {"BALESET1", "'0'"},
        {"BALESET2", "'0'"},  {"RECEPT", "'0'"},   {"GYOGYSEG", "'0'"},  {"GYOGYFURD", "'0'"},
        {"ElszNyil", "'0'"}};
    const auto with = [&zeros](std::vector<std::pair<std::string, std::string>> own) {
        own.insert(own.begin(), zeros.begin(), zeros.end());
        return own;
    };
    addSheet(test, 1, {}, {});
    addSheet(test, 2,
             {{"PaciensId", "1"},
              {"ORVKOD", "'12345'"},
              {"IGENYLO", "'123456789'"},
              {"BeutOrvos", "'54321'"},
              {"BeutIndok", "'Z11'"},
              {"BeutaloKelte", "'2008.02.25.'"},
              {"F_DATUM", "'2008.03.31.'"},
              {"F_IDO", "'08:15:00'"},
              {"TERITES", "'01'"},
              {"TerReszlDij", "1500"},
              {"ELL_TIP", "'1'"},
              {"DIAG1", "'I10H0'"},
              {"DIAG2", "'J060'"},
              {"DIAG3", "' '"},
              {"DIAG4", "''"},
              {"TOVA", "'0'"},
              {"LABOR", "'0'"},
              {"RTG", "'1'"},
              {"CTMR", "'2'"},
              {"FIZIO", "'3'"},
              {"K_KEP", "'4'"},
              {"UTKLTG", "'5'"},
              {"BALESET1", "'0'"},
              {"BALESET2", "'0'"},
              {"RECEPT", "'1'"},
              {"GYOGYSEG", "'12'"},
              {"GYOGYFURD", "'0'"},
              {"ElszNyil", "'10'"},
              {"VizitDij", "'03'"},
              {"VizitdijFizMod", "'1'"}},
             {{"'11041'", "1", "'A'"}});
    addSheet(test, 3,
             {{"SZAKREND", "'020000002'"},
              {"NAPLO", "'A/7'"},
              {"PaciensId", "2"},
              {"ORVKOD", "'777'"},
              {"IGENYLO", "' '"},
              {"BeutIndok", "' '"},
              {"F_DATUM", "'2008.03.01.'"},
              {"F_IDO", "'23:59:00'"},
              {"TERITES", "'0R'"},
              {"TerReszlDij", "12.5"},
              {"ELL_TIP", "'2'"},
              {"DIAG1", "'        '"},
              {"TOVA", "'1'"},
              {"LABOR", "'0'"},
              {"RTG", "'0'"},
              {"CTMR", "'0'"},
              {"FIZIO", "'0'"},
              {"K_KEP", "'0'"},
              {"UTKLTG", "'0'"},
              {"BALESET1", "'1'"},
              {"BALESET2", "' '"},
              {"RECEPT", "''"},
              {"GYOGYSEG", "' '"},
              {"GYOGYFURD", "'0'"},
              {"ElszNyil", "' '"}},
             {{"'11041'", "1", "'A'"},
              {"'12345'", "2", "'A'"},
              {"'ZZZZZ'", "1", "'P'"},
              {"'11041'", "10", "'A'"},
              {"' '", "1", "'A'"},
              {"'29000'", "1"}});
    std::vector<LineData> seven(6, {"'12345'", "1"});
    seven.push_back({"'12345'", "3"});
    addSheet(test, 9,
             with({{"SZAKREND", "'030000003'"},
                   {"PaciensId", "2"},
                   {"F_DATUM", "'2008.03.15.'"},
                   {"F_IDO", "'12:00:00'"},
                   {"DIAG1", "'M54'"}}),
             seven);
    std::vector<LineData> eight(6, {"'29000'", "2"});
    eight.push_back({"'11041'", "1", "'A'"});
    eight.push_back({"'a1é'", "1", "'B'"});
    addSheet(test, 10,
             with({{"SZAKREND", "'020000002'"},
                   {"PaciensId", "99"},
                   {"F_DATUM", "'2008.03.02.'"},
                   {"F_IDO", "'07:00:00'"}}),
             eight);
    std::vector<LineData> thirteen(12, {"'11041'", "1"});
    thirteen.push_back({"'11041'", "99"});
    addSheet(test, 11,
             {{"SZAKREND", "'U4'"}, {"PaciensId", "1"}, {"F_DATUM", "'2008.03.09.'"}, {"TERITES", "'01'"}},
             thirteen);
    // Not due: another month on either side, a correction, one that was reported.
    addSheet(test, 20, {{"F_DATUM", "'2008.02.29.'"}}, {{"'11041'", "1"}});
    addSheet(test, 21, {{"F_DATUM", "'2008.04.01.'"}}, {{"'11041'", "1"}});
    addSheet(test, 22, {{"JAV", "'1'"}}, {{"'11041'", "1"}});
    addSheet(test, 23, {{"FLOPPY", "1"}}, {{"'11041'", "1"}});
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
    EXPECT_EQ(recorder.calls.join(QLatin1Char('|')),
              QStringLiteral("started|selected 6|Előkészítés: 6/6|records 9|procedures 34|Kiírás: 9/9"));

    const QByteArray golden = fileBytes(QStringLiteral(VANDREL_GOLDEN_DIR "/original.amb"));
    const QByteArray written = fileBytes(amb());
    const QList<QByteArray> goldenLines = golden.split('\n'), writtenLines = written.split('\n');
    for (qsizetype i = 0; i < std::min(goldenLines.size(), writtenLines.size()); ++i)
        EXPECT_EQ(writtenLines[i].toStdString(), goldenLines[i].toStdString()) << "line " << i + 1;
    EXPECT_EQ(written, golden);
    EXPECT_EQ(fileBytes(test.path(QStringLiteral("kuldo.txt"))).toStdString(),
              fileBytes(QStringLiteral(VANDREL_GOLDEN_DIR "/kuldo.txt")).toStdString());
    EXPECT_EQ(fileBytes(target(QStringLiteral("kuldo.txt"))),
              fileBytes(QStringLiteral(VANDREL_GOLDEN_DIR "/kuldo.txt")));
    EXPECT_EQ(QDir(target({})).entryList(QDir::Files, QDir::Name).join(QLatin1Char(' ')),
              QStringLiteral("N123.id id.txt kuldo.txt tetN123.arj"));
    EXPECT_EQ(QFileInfo(target(QStringLiteral("N123.id"))).size(), 0);

    // The archive holds the same bytes under the bare name.
    QTemporaryDir unpacked;
    QProcess arj;
    arj.setWorkingDirectory(unpacked.path());
    arj.start(QStringLiteral("arj"),
              {QStringLiteral("x"), QStringLiteral("-y"), target(QStringLiteral("tetN123.arj"))});
    ASSERT_TRUE(arj.waitForFinished());
    EXPECT_EQ(QDir(unpacked.path()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot).join(QLatin1Char(' ')),
              QStringLiteral("tetN123.amb"));
    EXPECT_EQ(fileBytes(unpacked.filePath(QStringLiteral("tetN123.amb"))), golden);

    EXPECT_EQ(notes.shown.join(QLatin1Char('|')),
              QStringLiteral("Adatbázis tömörítése...|0|Adatbázis tömörítése kész, a jelentés elkészült!\n"
                             "Kérem várjon, amíg a felbukkanó ablak automatikusan bezáródik!|1"));
    // The sheet without lines is marked as well.
    EXPECT_EQ(marked(), QStringLiteral("1 2 3 9 10 11 23"));

    // A second run finds nothing and empties the scratch rows; write-back makes the period due again.
    test.dialogue.expect(noDataText, QStringLiteral("Hiba!"));
    EXPECT_EQ(run().result, Result::noData);
    EXPECT_EQ(recorder.calls.last(), QStringLiteral("noData"));
    EXPECT_EQ(firstText(test.workstation.files[DataFile::tetseged], "select count(*) from Leval_er"),
              QStringLiteral("0"));
    test.data().execute("update BETEG set FLOPPY=0 where AZONOSITO='TST0000023'");
    test.dialogue.expect(QStringLiteral("Kész az adatvisszaállítás!"), programTitle, Icon::information);
    EXPECT_EQ(writeBackMarks(test.workstation, QStringLiteral("2008.03"), QStringLiteral("2008.03"),
                             WriteBack::original, {})
                  .sheets,
              6);
    test.data().execute("update BETEG set JAV='1' where AZONOSITO='TST0000023'");
    EXPECT_TRUE(run().complete);
    EXPECT_EQ(fileBytes(amb()), golden);
}

TEST_F(OriginalReport, TheGrandTotalRunsOn) {
    addSheet(test, 1, {}, {{"'11041'", "1"}});
    addSheet(test, 2, {}, {{"'00005'", "1"}});
    EXPECT_TRUE(run().complete);
    const QByteArray note = fileBytes(test.path(QStringLiteral("kuldo.txt")));
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
    int turns = 0;
    test.workstation.serveEvents = [&turns] { ++turns; };
    const ReportOutcome outcome = run();
    EXPECT_TRUE(outcome.complete);
    EXPECT_EQ(outcome.records, 9000);
    EXPECT_GE(turns, 2);
    EXPECT_EQ(firstText(test.data(), "select count(*) from BETEG where FLOPPY=1"), QStringLiteral("9000"));
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
    test.dialogue.expect(selectionBroke + QLatin1Char('9'));
    EXPECT_EQ(run().result, Result::broken);
    EXPECT_EQ(marked(), QStringLiteral("1 2"));
    EXPECT_EQ(firstText(test.workstation.files[DataFile::tetseged], "select count(*) from Leval_er"),
              QStringLiteral("18"));
    EXPECT_FALSE(QFile::exists(amb()));
}

TEST_F(OriginalReport, StoreFaultsKeepTheMarksSetSoFar) {
    for (int key = 1; key <= 3; ++key)
        addPlain(key);
    // The second sheet's mark is refused: its number comes through, the first one stays marked.
    test.data().executeScript("create trigger refuse before update on BETEG when old.AZONOSITO='TST0000002' "
                              "begin select raise(abort, 'no'); end");
    test.dialogue.expect(selectionBroke + QStringLiteral("3421"));
    EXPECT_EQ(run().result, Result::broken);
    EXPECT_EQ(marked(), QStringLiteral("1"));
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
    test.dialogue.expect(selectionBroke + QStringLiteral("3026"));
    EXPECT_EQ(run().result, Result::broken);
    EXPECT_EQ(firstText(test.data(), "select FLOPPY from BETEG where AZONOSITO='TST0000600'"),
              QStringLiteral("0"));
    EXPECT_EQ(test.data().quickCheck(), QStringLiteral("ok"));
    scratch.executeScript("pragma max_page_count=1000000");

    // A lost table of the dictionary spoils the note, not the report file, which needs no points.
    test.data().executeScript("update BETEG set FLOPPY=0; delete from BETEG where AZONOSITO>'TST0000003'");
    test.workstation.files[DataFile::beav].executeScript("drop table BEAV");
    test.dialogue.expect(writerBroke + QStringLiteral("3078"), writerTitle);
    EXPECT_FALSE(run().complete);
    EXPECT_EQ(fileBytes(amb()).size(), fileBytes(amb()).indexOf("\r\n\r\n") + 4 + 3 * 196);

    scratch.executeScript("drop table Leval_er");
    test.dialogue.expect(selectionBroke + QStringLiteral("3078"));
    EXPECT_EQ(run().result, Result::broken);
}

TEST_F(OriginalReport, NoInstitutionNoReport) {
    addPlain(1);
    test.data().executeScript("delete from intezet");
    QFile stale(test.path(QStringLiteral("tet.amb")));
    ASSERT_TRUE(stale.open(QIODevice::WriteOnly));
    stale.write("old");
    stale.close();
    test.dialogue.expect(QStringLiteral("Nincsenek kitöltve az intézeti adatok!"), QStringLiteral("Hiba"));
    EXPECT_FALSE(run().complete);
    EXPECT_TRUE(QDir(test.directory.path()).entryList({QStringLiteral("*.amb")}).isEmpty());
}

TEST_F(OriginalReport, OnlySheetsWithoutLines) {
    addPlain(1, 0);
    test.dialogue.expect(QStringLiteral("Nincs adat![Hiba: ErFl-01]"), QStringLiteral("Hiba"));
    EXPECT_FALSE(run().complete);
    EXPECT_EQ(marked(), QStringLiteral("1"));
    EXPECT_TRUE(fileBytes(amb()).contains("\r\n0000000\r\n"));
    EXPECT_TRUE(fileBytes(amb()).endsWith("33333333 \r\n\r\n"));
}

TEST_F(OriginalReport, TargetThatIsNotReady) {
    addPlain(1);
    const QStringList before = QDir(test.directory.path()).entryList();
    for (const QString& place : {QStringLiteral("a:\\"), QStringLiteral("A:\\jelentes\\"),
                                 QStringLiteral("nincs/ilyen/"), test.path(QStringLiteral("nincs/"))}) {
        test.workstation.reportTarget = place;
        test.dialogue.expect(QStringLiteral("Nem található az elérési útvonal!"));
        EXPECT_EQ(run().result, Result::notStarted) << place.toStdString();
    }
    EXPECT_EQ(QDir(test.directory.path()).entryList(), before); // no file of an odd name
    EXPECT_FALSE(QFile::exists(QStringLiteral("a:\\id.txt")));
    EXPECT_EQ(marked(), QString());

    QDir(target({})).mkdir(QStringLiteral("id.txt")); // a place that cannot be written
    test.workstation.reportTarget = target({});
    test.dialogue.expect(selectionBroke + QStringLiteral("75"));
    EXPECT_EQ(run().result, Result::notStarted);
    EXPECT_TRUE(recorder.calls.isEmpty());
}

TEST_F(OriginalReport, FaultsOfTheWriter) {
    const auto makeFolder = [](const QString& path) { QDir().mkpath(path); };
    const auto linkFull = [](const QString& path) { QFile::link(QStringLiteral("/dev/full"), path); };
    const QString note = test.path(QStringLiteral("kuldo.txt"));
    const QString lostTarget = QStringLiteral("A megadott útvonal hibás!");
    const struct {
        const char* what;
        std::function<void()> spoil;
        QString box, title;
        bool complete;
    } cases[] = {
        {"the target goes away", [&] { QDir(target({})).removeRecursively(); }, lostTarget, programTitle,
         false},
        {"the report file does not open", [&] { makeFolder(amb()); }, writerBroke + QStringLiteral("52"),
         writerTitle, false},
        {"the disk of the report file is full", [&] { linkFull(amb()); }, writerBroke + QStringLiteral("61"),
         writerTitle, false},
        {"the disk of the note is full", [&] { linkFull(note); }, writerBroke + QStringLiteral("61"),
         writerTitle, false},
        {"the marker cannot be made: on to the next statement",
         [&] { makeFolder(target(QStringLiteral("N123.id"))); }, QString(), QString(), true},
        {"the note cannot be copied: ignored", [&] { makeFolder(target(QStringLiteral("kuldo.txt"))); },
         QString(), QString(), true},
        {"the target's disk is full: ignored", [&] { linkFull(target(QStringLiteral("kuldo.txt"))); },
         QString(), QString(), true},
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
        EXPECT_EQ(marked(), QStringLiteral("1"));
        EXPECT_EQ(QDir(target({})).exists(), fault.box != lostTarget) << "nothing makes the folder anew";
        clean();
        recorder.atWriting = nullptr; // released, the same report comes out
        EXPECT_TRUE(run().complete);
        EXPECT_EQ(fileBytes(amb()), whole);
        EXPECT_EQ(fileBytes(note), wholeNote);
    }
}

TEST_F(OriginalReport, WithoutTheArchiverTheRunStillEndsWell) {
    addPlain(1);
    QFile stale(target(QStringLiteral("tetN123.arj"))); // last month's
    ASSERT_TRUE(stale.open(QIODevice::WriteOnly));
    stale.close();
    ArjPacker missing(QStringLiteral("/nincs/arj"));
    NoteRecorder notes;
    Workstation station(test.directory.path(), test.dialogue, test.clock, missing);
    station.reportTarget = target({});
    station.statusNote = &notes;
    test.workstation.files.closeAll();
    Recorder progress;
    EXPECT_TRUE(runReport(station,
                          {QStringLiteral("0"), QStringLiteral("2008.03"), QStringLiteral("2008.03"), {}},
                          progress)
                    .complete);
    EXPECT_TRUE(
        notes.shown.value(2).startsWith(QStringLiteral("Adatbázis tömörítése kész, a jelentés elkészült!")));
    EXPECT_FALSE(QFile::exists(target(QStringLiteral("tetN123.arj"))));
    EXPECT_TRUE(QFile::exists(target(QStringLiteral("kuldo.txt"))));
}

TEST_F(OriginalReport, ABlankTargetIsTheWorkingFolder) {
    addPlain(1);
    test.workstation.reportTarget = QStringLiteral(" ");
    EXPECT_TRUE(run().complete);
    EXPECT_GT(fileBytes(test.path(QStringLiteral("kuldo.txt"))).size(), 500); // not copied over itself
    EXPECT_TRUE(QFile::exists(test.path(QStringLiteral("tetN123.arj"))));
}

TEST_F(OriginalReport, ModesWithoutAWriterMarkNothing) {
    addSheet(test, 1, {{"JAV", "'1'"}}, {{"'11041'", "1"}});
    for (const QString& mode : {QStringLiteral("1"), QStringLiteral("E")}) {
        test.dialogue.expect(QStringLiteral("Ez a jelentés ebben a változatban még nem készíthető el!"),
                             programTitle, Icon::information);
        const QString period = QStringLiteral("2008.03");
        EXPECT_EQ(runReport(test.workstation, {mode, period, period, period}, recorder).result,
                  Result::notBuilt);
    }
    EXPECT_EQ(marked("FLOPPY2"), QString());
}
