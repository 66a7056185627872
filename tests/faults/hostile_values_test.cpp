// Hostile values in every text field and dictionary, through store and report: nothing crashes, nothing is
// changed silently, and a report that cannot hold a value ends with its box and the file as far as written.
#include "clerk.h"

#include "foundation/look_ups.h"
#include "reports/report_run.h"
#include "reports/write_back.h"
#include "sheet/patient_register.h"
#include "sheet/procedure_lines.h"
#include "sheet/sheet_store.h"
#include "support/test_workstation.h"

#include <QDir>

#include <map>

using namespace Qt::StringLiterals;

namespace vandrel::test {

namespace {

class Recorder : public Dialogue {
  public:
    Answer show(const Message& message) override {
        boxes.push_back(message);
        return message.buttons == Buttons::yesNo ? Answer::yes : Answer::ok;
    }
    std::vector<Message> boxes;
};

class NoPacker : public Packer {
  public:
    void start(const QString&, const QString&, const QString&) override {}
    bool waitForFinished() override { return true; }
};

struct Station {
    Station() : workstation(prepared(directory), dialogue, clock, packer) {
        QDir(directory.path()).mkdir(u"target"_s);
        workstation.reportTarget = directory.filePath(u"target/"_s);
        data().executeScript("pragma synchronous=off;"); // many stores, and no power cut here
    }
    static QString prepared(const QTemporaryDir& directory) {
        prepareClinic(directory.path());
        return directory.path();
    }
    Database& data() { return workstation.files[DataFile::tetdata]; }

    SheetFields sheet(const QString& taj = u"123456788"_s) {
        SheetFields fields = makeNewSheet(workstation).fields;
        fields.Szakrend = u"010000001"_s;
        fields.Orvkod = u"12345"_s;
        fields.Szem_szam = taj;
        fields.Azon_tipus = u"1"_s;
        fields.Neve = u"Kovács Éva"_s;
        fields.Irszam = u"1011"_s;
        fields.City = u"Budapest"_s;
        fields.Cim = u"Fő u. 1."_s;
        fields.Anyja_neve = u"Őri Anna"_s;
        fields.Nem = u"2"_s;
        fields.Szul_dat = u"1970.05.06."_s;
        return fields;
    }
    void store(const SheetFields& fields, int lines) {
        for (int i = 0; i < lines; ++i)
            addProcedureLine(workstation, fields.Azonosito, u"10001"_s, u"1"_s, u"A"_s);
        ASSERT_EQ(storeSheet(workstation, fields).outcome, StoreOutcome::storedAnother);
    }
    ReportOutcome report() {
        dialogue.boxes.clear();
        ReportProgress progress;
        return runReport(workstation, {u"0"_s, u"2008.04"_s, u"2008.04"_s, {}}, progress);
    }
    void release() { writeBackMarks(workstation, u"2008.04"_s, u"2008.04"_s, WriteBack::original, {}); }
    QByteArray reportBytes() { return fileBytes(directory.filePath(u"tet9012.amb"_s)); }

    QTemporaryDir directory;
    Recorder dialogue;
    FixedClock clock{QDateTime(QDate(2008, 4, 3), QTime(14, 5, 9))};
    NoPacker packer;
    Workstation workstation;
};

constexpr int recordBytes = 196; // 194 characters and the line end

const std::vector<QString>& hostileValues() {
    static const std::vector<QString> values = {u"'; drop table BETEG; --"_s,
                                                u"O'Neil"_s,
                                                u"100%_*?#[a]"_s,
                                                u"<b onclick=x>&amp;</b>"_s,
                                                u"\"?1:a@b$c"_s,
                                                u"Ж你😀"_s,
                                                u"a\r\nb\tc"_s,
                                                QString(QChar(0)) + u"x"_s,
                                                QString(10'000, u'x'),
                                                QString(QChar(0xD800)),
                                                u"..\\..//"_s,
                                                u"  "_s,
                                                u"-1"_s,
                                                u"1e999"_s,
                                                u"99999999999999999999"_s,
                                                u"0x10"_s};
    return values;
}

// What UTF-8 makes of it: a lone half of a pair becomes the replacement character.
QString storable(const QString& text) {
    return QString::fromUtf8(text.toUtf8());
}

} // namespace

TEST(Hostile, EveryTextFieldThroughStoreAndReport) {
    // Where a field's text lands as it is, apart from an empty one that may turn into a blank.
    const std::map<QString, std::string> patientColumns = {{u"Neve"_s, "Neve"},
                                                           {u"Irszam"_s, "Irszam"},
                                                           {u"City"_s, "City"},
                                                           {u"Cim"_s, "Cim"},
                                                           {u"Allampol_rov"_s, "Allampol_rov"},
                                                           {u"Anyja_neve"_s, "Anyja_neve"},
                                                           {u"Leanykori_neve"_s, "Leanykori_neve"},
                                                           {u"KgySzam"_s, "KgySzam"},
                                                           {u"KgyLe"_s, "KgyLe"},
                                                           {u"Azon_tipus"_s, "Azon_Tipus"},
                                                           {u"Nem"_s, "Nem"}};
    const QStringList elsewhere = {u"Azonosito"_s, u"Jav"_s,     u"Szem_szam"_s,   u"Szul_dat"_s,
                                   u"F_ido"_s,     u"Baleset"_s, u"TerReszlDij"_s, u"VizDijOsszeg"_s,
                                   u"BEAV"_s,      u"MENNY"_s,   u"BeavJelleg"_s,  u"BIZT_ORSZ"_s,
                                   u"CS_NEV"_s,    u"KER_NEV"_s, u"BIZT_SZAM"_s};
    Station station;
    int stored = 0, refused = 0, faults = 0, reported = 0, brokenReports = 0;
    for (const SheetFieldName& field : sheetFieldNames()) {
        const QString name = QLatin1String(field.name);
        if (name == u"Azonosito" || name.startsWith(u"BIZT")) continue; // not typed on this form
        for (const QString& value : hostileValues()) {
            SCOPED_TRACE(name.toStdString() + " = " + value.left(40).toStdString());
            SheetFields fields = station.sheet();
            field.of(fields) = value;
            const std::string key = fields.Azonosito.toStdString();
            const QString before = firstText(station.data(), "select count(*) from BETEG");
            try {
                if (storeSheet(station.workstation, fields).outcome == StoreOutcome::refused) {
                    ++refused;
                    EXPECT_EQ(firstText(station.data(), "select count(*) from BETEG"), before);
                    continue;
                }
            } catch (const Fault& fault) {
                ++faults;
                EXPECT_FALSE(fault.text().isEmpty());
                EXPECT_LT(fault.text().size(), 300) << "a box must fit the screen";
                EXPECT_EQ(firstText(station.data(), "select count(*) from BETEG"), before) << fault.what();
                continue;
            }
            ++stored;
            if (const auto column = patientColumns.find(name); column != patientColumns.end()) {
                EXPECT_EQ(firstText(station.data(), "select [" + column->second +
                                                        "] from Paciensek where ID=(select "
                                                        "PaciensId from BETEG where AZONOSITO='" +
                                                        key + "')"),
                          storable(value));
            } else if (!elsewhere.contains(name) && !name.startsWith(u"Felh") && !value.trimmed().isEmpty()) {
                EXPECT_EQ(firstText(station.data(), "select [" + std::string(field.name) +
                                                        "] from BETEG where AZONOSITO='" + key + "'"),
                          storable(value));
            }
            // The report of this sheet alone: the others are marked.
            station.data().execute("insert into EUSZOLG values (?1, '10001', 1, 'A')", key.c_str());
            const ReportOutcome outcome = station.report();
            if (outcome.result == ReportOutcome::Result::noData) { // another month, or no longer an original
                EXPECT_TRUE(name == u"F_datum" || name == u"Jav");
                station.data().execute("update BETEG set FLOPPY=1");
                continue;
            }
            ASSERT_EQ(outcome.result, ReportOutcome::Result::writerEnded);
            const QByteArray bytes = station.reportBytes();
            if (outcome.complete) {
                ++reported;
                EXPECT_TRUE(station.dialogue.boxes.empty());
                EXPECT_EQ(bytes.size() - bytes.indexOf("\r\n\r\n") - 4, recordBytes);
            } else {
                ++brokenReports;
                ASSERT_EQ(station.dialogue.boxes.size(), 1u);
                EXPECT_EQ(station.dialogue.boxes[0].text, u"Hiba történt az adatkiírás során!5"_s);
                EXPECT_EQ(station.dialogue.boxes[0].title, u"Hiba mentés közben"_s);
                EXPECT_LT(bytes.size() - bytes.indexOf("\r\n\r\n") - 4, recordBytes);
            }
        }
    }
    std::printf("%d stored, %d refused, %d faults; %d reported, %d reports ended by a box\n", stored, refused,
                faults, reported, brokenReports);
    EXPECT_GT(stored, 400);
    EXPECT_GT(brokenReports, 100);
    EXPECT_EQ(station.data().quickCheck(), u"ok"_s);
}

// Each column of the record: a value too long by one, and a letter outside the code page, on the second
// sheet.
TEST(Hostile, AReportStopsAtTheColumnAtFault) {
    struct Column {
        int position; // of the record, from 1
        const char* table;
        const char* column;
        int width;
    };
    const Column columns[] = {{1, "BETEG", "SZAKREND", 9},
                              {10, "BETEG", "ORVKOD", 5},
                              {15, "BETEG", "IGENYLO", 9},
                              {24, "BETEG", "BeutOrvos", 5},
                              {29, "BETEG", "BeutIndok", 9},
                              {46, "BETEG", "NAPLO", 8},
                              {66, "Paciensek", "Allampol_rov", 3},
                              {69, "Paciensek", "TAJ", 9},
                              {88, "Paciensek", "Irszam", 4},
                              {92, "BETEG", "TERITES", 2},
                              {100, "BETEG", "ELL_TIP", 1},
                              {101, "BETEG", "DIAG1", 5},
                              {106, "BETEG", "DIAG2", 5},
                              {111, "BETEG", "DIAG3", 5},
                              {116, "BETEG", "DIAG4", 5},
                              {121, "BETEG", "DIAG5", 5},
                              {126, "EUSZOLG", "BEAV", 5},
                              {131, "EUSZOLG", "MENNY", 2},
                              {133, "EUSZOLG", "BeavJelleg", 1},
                              {174, "BETEG", "TOVA", 1},
                              {175, "BETEG", "LABOR", 1},
                              {176, "BETEG", "RTG", 1},
                              {177, "BETEG", "CTMR", 1},
                              {178, "BETEG", "FIZIO", 1},
                              {179, "BETEG", "K_KEP", 1},
                              {180, "BETEG", "UTKLTG", 1},
                              {181, "BETEG", "BALESET1", 2},
                              {183, "BETEG", "RECEPT", 2},
                              {185, "BETEG", "GYOGYSEG", 2},
                              {187, "BETEG", "GYOGYFURD", 2},
                              {189, "BETEG", "ElszNyil", 2},
                              {191, "BETEG", "VizitDij", 2},
                              {193, "BETEG", "VizitdijFizMod", 2}};
    Station station;
    station.store(station.sheet(), 1);
    station.store(station.sheet(u"234567890"_s), 1);
    ASSERT_TRUE(station.report().complete);
    const QByteArray whole = station.reportBytes();
    const qsizetype second = whole.size() - recordBytes;
    const auto marksOf = [&] { return firstText(station.data(), "select group_concat(FLOPPY) from BETEG"); };
    for (const Column& column : columns) {
        const std::string table = column.table;
        const std::string name = column.column;
        const QString old = firstText(station.data(), "select " + name + " from " + table + " where rowid=2");
        for (const QString& value : {QString(column.width + 1, u'1'), u"Ж"_s}) {
            SCOPED_TRACE(name + " = " + value.toStdString());
            station.release();
            station.data().execute("update " + table + " set " + name + "=?1 where rowid=2", value);
            EXPECT_FALSE(station.report().complete);
            ASSERT_EQ(station.dialogue.boxes.size(), 1u);
            EXPECT_EQ(station.dialogue.boxes[0].text, u"Hiba történt az adatkiírás során!5"_s);
            EXPECT_EQ(station.reportBytes(), whole.left(second + column.position - 1));
            EXPECT_EQ(marksOf(), u"1,1"_s) << "the write-back is the way out";
            station.data().execute("update " + table + " set " + name + "=?1 where rowid=2", old);
        }
    }
    station.release();
    ASSERT_TRUE(station.report().complete);
    EXPECT_EQ(station.reportBytes(), whole);
}

TEST(Hostile, AHundredLinesAndOneMore) {
    Station station;
    station.store(station.sheet(), 1);
    SheetFields fields = station.sheet();
    station.store(fields, 100);
    EXPECT_EQ(station.report().records, 1 + 17);
    station.release();

    addProcedureLine(station.workstation, fields.Azonosito, u"10001"_s, u"1"_s, u"A"_s);
    station.store(station.sheet(), 2);
    const ReportOutcome outcome = station.report();
    EXPECT_EQ(outcome.result, ReportOutcome::Result::broken);
    ASSERT_EQ(station.dialogue.boxes.size(), 1u);
    EXPECT_EQ(station.dialogue.boxes[0].text, u"Hiba történt! Leválogatás nem futtatható9"_s);
    // The marks set so far stay; the sheet at fault and those behind it have none.
    EXPECT_EQ(firstText(station.data(), "select group_concat(FLOPPY) from BETEG"), u"1,0,0"_s);
    EXPECT_EQ(firstText(station.data(), "select count(*) from EUSZOLG"), u"104"_s);
}

TEST(Hostile, Dictionaries) {
    Station station;
    Database& units = station.workstation.files[DataFile::tetmod];
    Database& procedures = station.workstation.files[DataFile::beav];
    for (const QString& value : hostileValues()) {
        SCOPED_TRACE(value.left(40).toStdString());
        // Looked up as codes they find nothing, or themselves.
        EXPECT_EQ(procedureCode(station.workstation, value), std::nullopt);
        EXPECT_EQ(diagnosisCode(station.workstation, value), std::nullopt);
        EXPECT_EQ(Visszaad_beav(station.workstation, value).points, 0);
        EXPECT_EQ(Visszaad_szakrend(station.workstation, value), QString());
        EXPECT_EQ(Visszaad_bekuldo(station.workstation, value), u" "_s);
        EXPECT_EQ(townOf(station.workstation, value), QString());
        EXPECT_EQ(findPatientByPrefix(station.workstation, value), std::nullopt);
        if (value.trimmed().isEmpty()) continue;
        procedures.execute("insert into BEAV (BEAV_KOD, BEAV_NEV, NEMET_PONT) values (?1, ?1, 7)", value);
        EXPECT_EQ(procedureCode(station.workstation, value), storable(value));
        EXPECT_EQ(Visszaad_beav(station.workstation, value).points, 7);
        procedures.execute("delete from BEAV where NEMET_PONT=7");

        // As the name of a unit and of the institution they stand in the note, a strange letter as '?'.
        units.execute("update SZAKREND set REND_NEV=?1", value);
        station.data().execute("update intezet set Int_nev=?1", value);
        station.store(station.sheet(), 1);
        EXPECT_TRUE(station.report().complete);
        const QByteArray note = fileBytes(station.directory.filePath(u"kuldo.txt"_s));
        QByteArray expected;
        for (const char32_t letter : storable(value).toUcs4())
            expected += letter < 128 ? static_cast<char>(letter) : '?';
        EXPECT_TRUE(note.contains("Az int\xE9zet neve: " + expected + "\r\n"));
        EXPECT_TRUE(note.contains("\r\n010000001 " + expected));
    }
    // In the head block, which the fund's reader takes by position, a strange letter is a fault.
    station.data().execute("update intezet set Szakrend_kod='01Ж'");
    station.store(station.sheet(), 1);
    EXPECT_FALSE(station.report().complete);
    ASSERT_EQ(station.dialogue.boxes.size(), 1u);
    EXPECT_EQ(station.dialogue.boxes[0].text, u"Hiba történt az adatkiírás során!5"_s);
}

} // namespace vandrel::test
