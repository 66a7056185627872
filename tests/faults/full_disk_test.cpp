// A disk that fills up while a sheet is stored or a report made, and a folder that cannot be written: the
// box, and the data as they were.
#include "broken_process.h"
#include "clerk.h"

#include "app/application.h"
#include "reports/report_run.h"
#include "reports/write_back.h"
#include "sheet/forms/tetad.h"
#include "sheet/procedure_lines.h"
#include "sheet/sheet_store.h"
#include "support/sheet_screen.h"
#include "support/test_workstation.h"

#include <QFile>

#include <algorithm>

#include <sys/stat.h>

namespace vandrel::test {

namespace {

const ReportRequest april{QStringLiteral("0"), QStringLiteral("2008.04"), QStringLiteral("2008.04"), {}};

struct Station {
    Station() : workstation(prepared(directory), dialogue, clock, packer) {
        QDir(directory.path()).mkdir(QStringLiteral("target"));
        workstation.reportTarget = directory.filePath(QStringLiteral("target/"));
    }
    static QString prepared(const QTemporaryDir& directory) {
        prepareClinic(directory.path());
        return directory.path();
    }
    Database& data() { return workstation.files[DataFile::tetdata]; }
    qint64 number(Database& database, const std::string& sql) {
        Query row = database.query(sql);
        return row.next() ? row.integer(0) : -1;
    }
    // The file may grow by so many pages and no more, as on a disk with that much room.
    void leavePages(Database& database, qint64 pages) {
        const qint64 now = number(database, "pragma page_count");
        number(database, "pragma max_page_count=" + std::to_string(now + pages));
    }
    void leaveAllPages(Database& database) { number(database, "pragma max_page_count=1000000"); }

    QTemporaryDir directory;
    WillingDialogue dialogue;
    FixedClock clock{QDateTime(QDate(2008, 4, 3), QTime(14, 5, 9))};
    ArjPacker packer;
    Workstation workstation;
};

// New sheets only, each with lines.
Confirmed storeOne(Workstation& station, const QString& patient, int lines) {
    SheetFields fields = makeNewSheet(station).fields;
    fields.Szakrend = QStringLiteral("010000001");
    fields.Szem_szam = patient;
    fields.Azon_tipus = QStringLiteral("1");
    fields.Neve = QString(900, u'N');
    fields.Irszam = QStringLiteral("1011");
    fields.City = fields.Cim = fields.Anyja_neve = fields.Neve;
    fields.Nem = QStringLiteral("2");
    fields.Szul_dat = QStringLiteral("1970.05.06.");
    fields.NOTE = QString(20'000, u'M');
    for (int i = 0; i < lines; ++i)
        addProcedureLine(station, fields.Azonosito, QStringLiteral("10001"), QStringLiteral("1"),
                         QStringLiteral("A"));
    storeSheet(station, fields);
    return {fields.Azonosito.toStdString(), lines, 0, false};
}

} // namespace

TEST(FullDisk, AStoreIsWhollyDoneOrWhollyUndone) {
    Station station;
    storeOne(station.workstation, QStringLiteral("100000000"), 2);
    int refused = 0;
    // Room for no page, for one, ... until the whole store fits.
    for (qint64 pages = 0; pages < 30; ++pages) {
        const qint64 sheets = station.number(station.data(), "select count(*) from BETEG");
        const qint64 patients = station.number(station.data(), "select count(*) from Paciensek");
        const QString last = firstText(station.data(), "select END_AZON from AZONOSIT");
        station.leavePages(station.data(), pages);
        bool stored = false;
        try {
            storeOne(station.workstation, QString::number(200'000'000 + pages), 0);
            stored = true;
        } catch (const Fault& fault) {
            EXPECT_EQ(fault.number(), fault::dataFileFull);
            EXPECT_TRUE(fault.text().contains(QStringLiteral("tetdata.mdb: a lemez megtelt")))
                << fault.what();
            ++refused;
        }
        station.leaveAllPages(station.data());
        EXPECT_FALSE(station.data().inTransaction());
        EXPECT_EQ(station.data().quickCheck(), QStringLiteral("ok"));
        EXPECT_EQ(station.number(station.data(), "select count(*) from BETEG"), sheets + stored);
        EXPECT_EQ(station.number(station.data(), "select count(*) from Paciensek"), patients + stored);
        EXPECT_EQ(firstText(station.data(), "select END_AZON from AZONOSIT") != last, stored);
        if (stored) break;
        // The same sheet stores once there is room.
        storeOne(station.workstation, QString::number(200'000'000 + pages), 0);
        EXPECT_EQ(station.number(station.data(), "select count(*) from BETEG"), sheets + 1);
    }
    EXPECT_GT(refused, 2);
}

// On the screen: the box names the file, the form stays open with all its content, and the same key stores.
TEST(FullDisk, TheFormKeepsItsContent) {
    SheetScreen screen;
    TestWorkstation& station = screen.setUp;
    tetad& form = screen.form;
    auto* application = static_cast<Application*>(QCoreApplication::instance());
    application->showFaultsIn(station.dialogue);
    screen.open();
    SheetFields fields = form.fields();
    fields.Szakrend = QStringLiteral("010000001");
    fields.Szem_szam = QStringLiteral("111111110");
    fields.Azon_tipus = QStringLiteral("1");
    fields.Neve = QStringLiteral("Kovács Éva");
    fields.Irszam = QStringLiteral("1011");
    fields.Cim = QStringLiteral("Fő u. 1.");
    fields.Anyja_neve = QStringLiteral("Őri Anna");
    fields.Nem = QStringLiteral("2");
    fields.Szul_dat = QStringLiteral("1970.05.06.");
    fields.NOTE = QString(20'000, u'x');
    form.setFields(fields);
    const auto limit = [&](const char* pages) {
        station.data().query(std::string("pragma max_page_count=") + pages).next();
    };
    limit("1"); // the engine takes it as the file's present size
    const QString question =
        QStringLiteral("Ilyen TAJ számú beteg nincs a Páciens törzsben!\nKivánja most rögzíteni?");
    station.dialogue.expectQuestion(question, Answer::yes, QStringLiteral("Kérdés"));
    station.dialogue.expect(QStringLiteral("tetdata.mdb: a lemez megtelt (database or disk is full)"),
                            QStringLiteral("Hiba"));
    pressKey(Qt::Key_W, Qt::ControlModifier);
    EXPECT_TRUE(station.dialogue.allShown());
    EXPECT_TRUE(form.isVisible());
    EXPECT_EQ(form.fields().NOTE, fields.NOTE);
    EXPECT_EQ(form.fields().Neve, fields.Neve);
    EXPECT_EQ(firstText(station.data(), "select count(*) from BETEG"), QStringLiteral("0"));
    EXPECT_EQ(firstText(station.data(), "select count(*) from Paciensek"), QStringLiteral("2"));

    limit("1000000");
    station.dialogue.expectQuestion(question, Answer::yes, QStringLiteral("Kérdés"));
    station.dialogue.expectQuestion(
        QStringLiteral("Adatok eltárolása megtörtént!\nKíván új beteget rögzíteni?"), Answer::no);
    pressKey(Qt::Key_W, Qt::ControlModifier);
    EXPECT_EQ(firstText(station.data(), "select AZONOSITO||length(NOTE) from BETEG"),
              QStringLiteral("A01000004220000"));
    static WillingDialogue afterwards; // this test's own dialogue ends here
    application->showFaultsIn(afterwards);
}

struct ReportPlace {
    const char* name;
    const char* fullFile; // where the disk is full: a text file, or none
    bool fullScratch;     // or the scratch file
    const char16_t* box;  // empty: the run ends well
    const char16_t* title;
};

// The name in the list of tests; without it the engine prints the bytes of the struct.
void PrintTo(const ReportPlace& place, std::ostream* out) {
    *out << place.name;
}

class FullDiskReport : public testing::TestWithParam<ReportPlace> {};

TEST_P(FullDiskReport, ShowsItsBoxAndHarmsNothing) {
    const ReportPlace& place = GetParam();
    Station station;
    for (int i = 0; i < 40; ++i)
        storeOne(station.workstation, QString::number(300'000'000 + i), 13);
    // The right answer, for later.
    ReportProgress progress;
    const QString report = station.directory.filePath(QStringLiteral("tet9012.amb"));
    ASSERT_TRUE(runReport(station.workstation, april, progress).complete);
    station.packer.waitForFinished();
    const QByteArray whole = fileBytes(report);
    EXPECT_GT(whole.size(), 40 * 3 * 196);
    const auto release = [&] {
        const auto moved = [](qint64, qint64) {};
        writeBackMarks(station.workstation, april.from, april.to, WriteBack::original, moved);
    };
    release();

    const QString fullFile = station.directory.filePath(QLatin1String(place.fullFile));
    if (*place.fullFile != '\0') {
        QFile::remove(fullFile);
        ASSERT_TRUE(QFile::link(QStringLiteral("/dev/full"), fullFile));
    }
    if (place.fullScratch) {
        Database& scratch = station.workstation.files[DataFile::tetseged];
        scratch.execute("delete from Leval_er");
        scratch.executeScript("vacuum");
    }
    std::vector<Message> boxes;
    class Recorder : public Dialogue {
      public:
        explicit Recorder(std::vector<Message>& kept) : m_kept(kept) {}
        Answer show(const Message& message) override {
            m_kept.push_back(message);
            return Answer::ok;
        }

      private:
        std::vector<Message>& m_kept;
    } recorder(boxes);
    {
        // The run of a process of its own: the boxes are what the user sees.
        Workstation second(station.directory.path(), recorder, station.clock, station.packer);
        second.reportTarget = station.workstation.reportTarget;
        station.workstation.files.closeAll();
        if (place.fullScratch) station.leavePages(second.files[DataFile::tetseged], 3);
        const ReportOutcome outcome = runReport(second, april, progress);
        station.packer.waitForFinished();
        EXPECT_EQ(outcome.complete, *place.box == 0);
    }
    if (*place.box != 0) {
        ASSERT_EQ(boxes.size(), 1u);
        EXPECT_EQ(boxes[0].text, QString::fromUtf16(place.box));
        EXPECT_EQ(boxes[0].title, QString::fromUtf16(place.title));
        EXPECT_EQ(boxes[0].icon, Icon::critical);
    } else {
        EXPECT_TRUE(boxes.empty());
    }
    // The sheets are as they were, but for marks; released, the same report comes out.
    EXPECT_EQ(station.data().quickCheck(), QStringLiteral("ok"));
    EXPECT_EQ(
        station.number(station.data(), "select count(*) from BETEG where FLOPPY in (0,1) and NAPLO<>''"), 40);
    EXPECT_EQ(station.number(station.data(), "select count(*) from EUSZOLG"), 40 * 13);
    EXPECT_EQ(station.workstation.files[DataFile::tetseged].quickCheck(), QStringLiteral("ok"));
    if (*place.fullFile != '\0') QFile::remove(fullFile);
    release();
    ASSERT_TRUE(runReport(station.workstation, april, progress).complete);
    station.packer.waitForFinished();
    EXPECT_EQ(fileBytes(report), whole);
}

INSTANTIATE_TEST_SUITE_P(
    Places, FullDiskReport,
    testing::Values(ReportPlace{"report", "tet9012.amb", false, u"Hiba történt az adatkiírás során!61",
                                u"Hiba mentés közben"},
                    ReportPlace{"note", "kuldo.txt", false, u"Hiba történt az adatkiírás során!61",
                                u"Hiba mentés közben"},
                    // Errors are ignored once the packing has begun.
                    ReportPlace{"copied note", "target/kuldo.txt", false, u"", u""},
                    ReportPlace{"scratch rows", "", true, u"Hiba történt! Leválogatás nem futtatható3026",
                                u"Vandrel Járóbeteg program"}),
    [](const auto& place) {
        std::string name = place.param.name;
        std::replace(name.begin(), name.end(), ' ', '_');
        return name;
    });

// A real volume of its own, where this machine lets one be mounted.
TEST(FullDisk, AVolumeFilledToItsEnd) {
    const QTemporaryDir directory;
    ClerkProcess clerk({"fill", directory.path().toStdString()});
    const std::vector<std::string> lines = clerk.lines();
    if (clerk.exitCode() == ClerkProcess::notAllowed)
        GTEST_SKIP()
            << "this machine does not let a volume be mounted; the other trials of a full disk have run";
    ASSERT_EQ(clerk.exitCode(), 0);
    ASSERT_FALSE(lines.empty());
    EXPECT_EQ(lines.front(), "store " + std::to_string(fault::dataFileFull));
    for (const std::string& line : lines) {
        EXPECT_NE(line.substr(0, 5), "wrong") << line;
        std::printf("%s\n", line.c_str());
    }
    EXPECT_EQ(std::count(lines.begin(), lines.end(), "report complete"), 0);
    EXPECT_EQ(lines.back().substr(0, 7), "sheets ");
}

// Rights bind a user who is not the administrator: the clerk's process gives its own up.
TEST(Unwritable, FolderAndTarget) {
    const QTemporaryDir directory;
    const QString folder = directory.filePath(QStringLiteral("program"));
    const QString target = directory.filePath(QStringLiteral("target"));
    prepareClinic(folder);
    QDir().mkpath(target);
    const auto rights = [](const QString& path, mode_t mode) {
        return chmod(QFile::encodeName(path).constData(), mode) == 0;
    };
    const QByteArray before = fileBytes(folder + QStringLiteral("/tetdata.mdb"));
    ASSERT_TRUE(rights(directory.path(), 0755) && rights(folder, 0555));
    for (const QString& file : QDir(folder).entryList(QDir::Files))
        ASSERT_TRUE(rights(folder + u'/' + file, 0444));
    struct Case {
        mode_t targetMode;
        const char* report;
    };
    for (const Case& trial : {Case{0777, "report Hiba történt! Leválogatás nem futtatható3027"},
                              Case{0555, "report Hiba történt! Leválogatás nem futtatható75"}}) {
        ASSERT_TRUE(rights(target, trial.targetMode));
        ClerkProcess clerk({"unwritable", folder.toStdString(), target.toStdString() + '/'});
        const std::vector<std::string> lines = clerk.lines();
        if (clerk.exitCode() == ClerkProcess::notAllowed) GTEST_SKIP() << "this user may write everywhere";
        ASSERT_EQ(clerk.exitCode(), 0);
        ASSERT_EQ(lines.size(), 2u);
        EXPECT_EQ(
            lines[0],
            "store 3027 tetdata.mdb: az adatállomány nem írható (attempt to write a readonly database)");
        EXPECT_EQ(lines[1], trial.report);
        QFile::remove(target + QStringLiteral("/id.txt")); // left by the target's test
    }
    EXPECT_EQ(fileBytes(folder + QStringLiteral("/tetdata.mdb")), before);
    EXPECT_FALSE(QFile::exists(folder + QStringLiteral("/tet9012.amb")));
    ASSERT_TRUE(rights(folder, 0755));
}

} // namespace vandrel::test
