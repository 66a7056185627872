// Hostile values in every text field and dictionary, through store and report: nothing crashes, nothing is
// changed silently, and a report that cannot hold a value ends with its box and the file as far as written.
#include "foundation/look_ups.h"
#include "reports/record_table.h"
#include "reports/sheet_rows.h"
#include "sheet/patient_register.h"
#include "sheet/sheet_field_table.h"
#include "sheet/sheet_fields.h"
#include "support/clinic.h"

using namespace Qt::StringLiterals;

namespace vandrel::test {

namespace {

constexpr int recordBytes = 196; // 194 characters and the line end
const QString valueBox = u"Hiba történt az adatkiírás során!5"_s;

const QStringList hostileValues =
    u"'; drop table BETEG; --|O'Neil|100%_*?#[a]|<b onclick=x>&amp;</b>|\"?1:a@b$c|Ж你😀|a\r\nb\tc|..\\..//|  "
    u"|"
    u"-1|1e999|99999999999999999999|0x10"_s.split(u'|') +
    QStringList{QString(QChar(0)) + u'x', QString(10'000, u'x'), QString(QChar(0xD800)), u"\uFEFFx"_s};

// What UTF-8 makes of it: a lone half of a pair becomes the replacement character.
QString storable(const QString& text) {
    const QString result = QString::fromUtf8(text.toUtf8()); // drops a byte order mark at the head
    return text.startsWith(QChar(QChar::ByteOrderMark)) ? QChar(QChar::ByteOrderMark) + result : result;
}

// Table and column that a record's column shows as they are; empty for another one.
std::pair<std::string, std::string> storedIn(std::string_view column) {
    if (column == "Who_1") return {"EUSZOLG", "BEAV"};
    if (column == "Menny_1") return {"EUSZOLG", "MENNY"};
    if (column == "Jell_1") return {"EUSZOLG", "BeavJelleg"};
    for (const std::span<const RowColumn> rows :
         {std::span<const RowColumn>(everyRowColumns), originalHeadColumns})
        for (const RowColumn& row : rows)
            if (row.column == column && (row.conversion == Conversion::none || !row.second.empty()))
                return {row.source == RowSource::sheet ? "BETEG" : "Paciensek", std::string(row.from)};
    return {};
}

} // namespace

TEST(Hostile, EveryTextFieldThroughStoreAndReport) {
    // Where a field's text lands; those not named here land in BETEG under their own name.
    const QStringList ofPatient =
        u"Neve Irszam City Cim Allampol_rov Anyja_neve Leanykori_neve KgySzam KgyLe Azon_tipus Nem"_s.split(
            u' ');
    const QStringList elsewhere =
        u"Jav Szul_dat Baleset TerReszlDij VizDijOsszeg BEAV MENNY BeavJelleg"_s.split(u' ');
    Clinic clinic;
    clinic.data().execute(
        "update EGYEBPAR set Felh1_nev='a',Felh2_nev='b',Felh3_nev='c',Felh4_nev='d',Felh5_nev='e'");
    const auto sheets = [&] { return firstText(clinic.data(), "select count(*) from BETEG"); };
    int stored = 0, refused = 0, faults = 0, reported = 0, brokenReports = 0;
    for (const FieldRow<SheetKey>& field : sheetFieldTable()) {
        const QString name = QLatin1StringView(field.field.name);
        if (name == u"Azonosito") continue; // not typed on this form
        for (const QString& value : hostileValues) {
            SCOPED_TRACE(name.toStdString() + " = " + value.left(40).toStdString());
            SheetFields fields = goodSheet(clinic.workstation);
            valueOf(fields, field.key) = value;
            const QString before = sheets();
            try {
                if (storeSheet(clinic.workstation, fields).outcome == StoreOutcome::refused) {
                    ++refused;
                    EXPECT_EQ(sheets(), before);
                    continue;
                }
            } catch (const Fault& fault) {
                ++faults;
                EXPECT_FALSE(fault.text().isEmpty());
                EXPECT_LT(fault.text().size(), 300) << "a box must fit the screen";
                EXPECT_EQ(sheets(), before) << fault.what();
                continue;
            }
            ++stored;
            const std::string newest = " from BETEG order by rowid desc limit 1";
            if (ofPatient.contains(name)) {
                EXPECT_EQ(firstText(clinic.data(), "select [" + std::string(field.field.name) +
                                                       "] from Paciensek where ID=(select PaciensId" +
                                                       newest + ")"),
                          storable(value));
            } else if (!elsewhere.contains(name) && !value.trimmed().isEmpty()) {
                EXPECT_EQ(firstText(clinic.data(), "select [" + std::string(field.field.name) + "]" + newest),
                          storable(name == u"Szem_szam" ? value.trimmed() : value) +
                              (name == u"F_ido" ? u":00"_s : QString()));
            }
            // The report of this sheet alone: the others are marked.
            clinic.data().execute("insert into EUSZOLG values (?1, '11041', 1, 'A')", fields.Azonosito);
            const ReportOutcome outcome = clinic.report();
            if (outcome.result == ReportOutcome::Result::noData) { // another month, or no longer an original
                EXPECT_TRUE(name == u"F_datum" || name == u"Jav");
                clinic.data().execute("update BETEG set FLOPPY=1");
                continue;
            }
            ASSERT_EQ(outcome.result, ReportOutcome::Result::writerEnded);
            const QByteArray bytes = clinic.reportBytes();
            const qsizetype recordSize = bytes.size() - bytes.indexOf("\r\n\r\n") - 4;
            if (outcome.complete) {
                ++reported;
                EXPECT_TRUE(clinic.dialogue.boxes.empty());
                EXPECT_EQ(recordSize, recordBytes);
            } else {
                ++brokenReports;
                EXPECT_EQ(clinic.onlyBox(), valueBox);
                EXPECT_LT(recordSize, recordBytes);
            }
        }
    }
    std::printf("%d stored, %d refused, %d faults; %d reported, %d reports ended by a box\n", stored, refused,
                faults, reported, brokenReports);
    EXPECT_GT(stored, 400);
    EXPECT_GT(brokenReports, 100);
    EXPECT_EQ(clinic.data().quickCheck(), u"ok"_s);
}

// Each column of the record, on the second sheet: a value too long by one, a letter outside the code page and
// a line end.
TEST(Hostile, AReportStopsAtTheColumnAtFault) {
    Clinic clinic;
    clinic.store(goodSheet(clinic.workstation), 1);
    SheetFields other = goodSheet(clinic.workstation);
    other.Szem_szam = u"234567890"_s;
    clinic.store(other, 1);
    ASSERT_TRUE(clinic.report().complete);
    const QByteArray whole = clinic.reportBytes();
    const qsizetype second = whole.size() - recordBytes;
    qsizetype place = 0;
    int columns = 0;
    for (const RecordColumn& column : originalRecord) {
        const qsizetype start = std::exchange(place, place + static_cast<qsizetype>(column.width));
        const auto [table, name] = storedIn(column.column);
        if (name.empty()) continue;
        ++columns;
        const std::string update = "update " + table + " set " + name + "=?1 where rowid=2";
        const QString old = firstText(clinic.data(), "select " + name + " from " + table + " where rowid=2");
        for (const QString& value : {QString(static_cast<qsizetype>(column.width) + 1, u'1'), u"Ж"_s, u"\n"_s,
                                     u"\uFEFF"_s, QString(QChar(0))}) {
            SCOPED_TRACE(name + " = " + value.toStdString());
            clinic.release();
            clinic.data().execute(update, value);
            QFile::remove(clinic.path(u"target/N123.id"_s));
            const ReportOutcome outcome = clinic.report();
            EXPECT_FALSE(outcome.complete);
            const QString detail = outcome.detail;
            EXPECT_EQ(clinic.onlyBox(), valueBox);
            EXPECT_EQ(detail,
                      u"Hibás adatlap: %1, mező: %2"_s.arg(other.Azonosito, QString::fromStdString(name)));
            EXPECT_EQ(clinic.reportBytes(), whole.left(second + start));
            EXPECT_FALSE(QFile::exists(clinic.path(u"target/N123.id"_s)));
            EXPECT_EQ(firstText(clinic.data(), "select group_concat(FLOPPY) from BETEG"), u"1,1"_s)
                << "the write-back is the way out";
            clinic.data().execute(update, old);
        }
    }
    EXPECT_EQ(columns, 33); // all but the further procedures and what is computed
    clinic.release();
    ASSERT_TRUE(clinic.report().complete);
    EXPECT_EQ(clinic.reportBytes(), whole);
}

TEST(Hostile, Dictionaries) {
    Clinic clinic;
    Database& units = clinic.dictionaries();
    Database& procedures = clinic.workstation.files[DataFile::beav];
    for (const QString& value : hostileValues) {
        SCOPED_TRACE(value.left(40).toStdString());
        // Looked up as codes they find nothing, or themselves.
        EXPECT_EQ(procedureCode(clinic.workstation, value), std::nullopt);
        EXPECT_EQ(diagnosisCode(clinic.workstation, value), std::nullopt);
        EXPECT_EQ(Visszaad_beav(clinic.workstation, value).points, 0);
        EXPECT_EQ(Visszaad_szakrend(clinic.workstation, value), QString());
        EXPECT_EQ(Visszaad_bekuldo(clinic.workstation, value), u" "_s);
        EXPECT_EQ(townOf(clinic.workstation, value), QString());
        EXPECT_EQ(findPatientByPrefix(clinic.workstation, value), std::nullopt);
        if (value.trimmed().isEmpty()) continue;
        procedures.execute("insert into BEAV (BEAV_KOD, BEAV_NEV, NEMET_PONT) values (?1, ?1, 7)", value);
        EXPECT_EQ(procedureCode(clinic.workstation, value), storable(value));
        EXPECT_EQ(Visszaad_beav(clinic.workstation, value).points, 7);
        procedures.execute("delete from BEAV where NEMET_PONT=7");

        // As the name of a unit and of the institution they are in the note, a strange letter as '?'.
        units.execute("update SZAKREND set REND_NEV=?1", value);
        clinic.data().execute("update intezet set Int_nev=?1", value);
        clinic.store(goodSheet(clinic.workstation), 1);
        EXPECT_TRUE(clinic.report().complete);
        const QByteArray note = fileBytes(clinic.path(u"kuldo.txt"_s));
        QByteArray expected;
        for (const char32_t letter : storable(value).toUcs4()) {
            const bool inLine = letter < 128 && letter != 0 && letter != '\r' && letter != '\n';
            expected += inLine ? static_cast<char>(letter) : '?';
        }
        EXPECT_TRUE(note.contains("Az int\xE9zet neve: " + expected + "\r\n"));
        EXPECT_TRUE(note.contains("\r\n010000001 " + expected));
    }
    // In the head block, which the Fund's reader takes by position, a strange letter is a fault, and so is
    // what would make another line of it.
    for (const QString& value : {u"01Ж"_s, u"01\n2"_s, u"\uFEFF01"_s, u"0\r"_s, QString(QChar(0))}) {
        clinic.data().execute("update intezet set Szakrend_kod=?1", value);
        clinic.store(goodSheet(clinic.workstation), 1);
        const ReportOutcome outcome = clinic.report();
        EXPECT_FALSE(outcome.complete);
        EXPECT_EQ(clinic.onlyBox(), valueBox);
        EXPECT_EQ(outcome.detail, u"Az intézet adatai nem írhatók a jelentésbe!"_s);
        clinic.release();
    }
}

} // namespace vandrel::test
