#include "reports/selection.h"

#include "platform/database.h"
#include "platform/format.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <string>

using namespace Qt::StringLiterals;

namespace vandrel {

namespace {

constexpr std::size_t periodLength = 7;
constexpr std::size_t rowLines = 6; // procedure positions of a row
// Sheets a commit. Each commit waits for the disk, and one of a large month would hold the window up.
constexpr int sheetsPerCommit = 8000;

const QString preparing = u"Előkészítés: "_s;

// --- texts -------------------------------------------------------------------------------------------------

// count characters from start (0-based) of a UTF-8 text.
std::string_view middle(std::string_view text, std::size_t start, std::size_t count) {
    const auto skip = [text](std::size_t at, std::size_t characters) {
        while (characters > 0 && at < text.size()) {
            ++at;
            while (at < text.size() && (static_cast<unsigned char>(text[at]) & 0xC0) == 0x80)
                ++at;
            --characters;
        }
        return at;
    };
    const std::size_t first = skip(0, start);
    return text.substr(first, skip(first, count) - first);
}

std::string_view trimmed(std::string_view text) {
    const auto first = text.find_first_not_of(' ');
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

// Binds texts made here; the buffers live until the statement has run.
class RowBinder {
  public:
    explicit RowBinder(Query& row) : m_row(row) {}

    void null() { m_row.bind(++m_at, nullptr); }
    void text(std::string_view value) { m_row.bindBorrowed(++m_at, value); }
    void as(const Query& source, int column) {
        const auto value = source.optionalBytes(column);
        value ? text(*value) : null();
    }
    void firstCharacter(const Query& source, int column) {
        source.isNull(column) ? null() : text(middle(source.bytes(column), 0, 1));
    }
    // éééé.hh.nn. as eight digits
    void digits(const Query& source, int column) {
        if (source.isNull(column)) return null();
        const std::string_view date = source.bytes(column);
        joined({middle(date, 0, 4), middle(date, 5, 2), middle(date, 8, 2)});
    }
    // hh:mm:00 as four digits
    void hourAndMinute(const Query& source, int column) {
        if (source.isNull(column)) return null();
        const std::string_view time = source.bytes(column);
        joined({middle(time, 0, 2), middle(time, 3, 2)});
    }
    // Both texts behind each other; Null only when both are.
    void both(const Query& source, int first, int second) {
        if (source.isNull(first) && source.isNull(second)) return null();
        // The second text may move the first one's buffer: take a copy of it.
        std::string& buffer = m_made[m_used++];
        buffer.assign(source.bytes(first));
        buffer.append(source.bytes(second));
        text(buffer);
    }
    // A number as the program writes it: no needless zeros, decimal comma.
    void number(const Query& source, int column) {
        // What is no number stays as it is stored and does not turn into a 0.
        if (source.isNull(column) || source.isText(column)) return as(source, column);
        std::string& buffer = m_made[m_used++];
        const double value = source.number(column);
        if (value == std::floor(value) && std::fabs(value) < 1e15)
            buffer = std::to_string(static_cast<long long>(value));
        else
            buffer = format::number(value).toStdString();
        text(buffer);
    }
    void run() {
        m_row.run();
        m_at = 0;
        m_used = 0;
    }

  private:
    void joined(std::initializer_list<std::string_view> parts) {
        std::string& buffer = m_made[m_used++];
        buffer.clear();
        for (const std::string_view part : parts)
            buffer.append(part);
        text(buffer);
    }

    Query& m_row;
    int m_at = 0;
    std::size_t m_used = 0;
    std::array<std::string, 8> m_made;
};

// --- statements --------------------------------------------------------------------------------------------

// The places of the sheet's columns follow this list.
enum SheetColumn {
    AZONOSITO,
    PaciensId,
    SZAKREND,
    NAPLO,
    ORVKOD,
    IGENYLO,
    BeutOrvos,
    BeutIndok,
    BeutaloKelte,
    F_DATUM,
    F_IDO,
    TERITES,
    TerReszlDij,
    ELL_TIP,
    DIAG1,
    DIAG2,
    DIAG3,
    DIAG4,
    DIAG5,
    TOVA,
    LABOR,
    RTG,
    CTMR,
    FIZIO,
    K_KEP,
    UTKLTG,
    BALESET1,
    BALESET2,
    RECEPT,
    GYOGYSEG,
    GYOGYFURD,
    ElszNyil,
    VizitDij,
    VizitdijFizMod,
    JAV,
    ER_AZON,
    ENAPLO,
    EDATUM
};
constexpr const char* sheetSelect =
    "select AZONOSITO, PaciensId, SZAKREND, NAPLO, ORVKOD, IGENYLO, BeutOrvos, BeutIndok, BeutaloKelte, "
    "F_DATUM, F_IDO, TERITES, TerReszlDij, ELL_TIP, DIAG1, DIAG2, DIAG3, DIAG4, DIAG5, TOVA, LABOR, RTG, "
    "CTMR, FIZIO, K_KEP, UTKLTG, BALESET1, BALESET2, RECEPT, GYOGYSEG, GYOGYFURD, ElszNyil, VizitDij, "
    "VizitdijFizMod, JAV, ER_AZON, ENAPLO, EDATUM from BETEG where rowid=?1";

enum PatientColumn { Allampol_rov, TAJ, Azon_Tipus, Nem, Szul_Dat, Irszam };
constexpr int patientColumns = 6;
constexpr const char* patientSelect =
    "select Allampol_rov, TAJ, Azon_Tipus, Nem, Szul_Dat, Irszam from Paciensek where ID=?1 order by rowid "
    "limit 1";

// In stored order.
constexpr const char* lineSelect =
    "select BEAV, MENNY, BeavJelleg from EUSZOLG where Azonosito=?1 order by rowid";

constexpr std::string_view everyRow = "R_azon, Naplo, Who_1, Menny_1, Jell_1, Who_2, Menny_2, Jell_2, "
                                      "Who_3, Menny_3, Jell_3, Who_4, Menny_4, Jell_4, Who_5, Menny_5, "
                                      "Jell_5, Who_6, Menny_6, Jell_6";
constexpr int everyRowColumns = 20;
constexpr std::string_view headRow =
    ", Orv_azon, Bek, Borv_azon, Badat, Bdatum, Datum, Ora, Allampol, Taj, Az_tip, Nem, Szul, Irszam, "
    "Terkat, Rterdij, Ell_tip, Bno_1, Bno_2, Bno_3, Bno_4, Bno_5, Tova, Labor, Rtg, Ctmr, Fizioter, K_kep, "
    "Utkltg, Baleset, Recept, Gyogyseg, Gyogyfurd, Elsznyil, Termen, Termod";
constexpr int headRowColumns = 35;
constexpr std::string_view correctionColumns = ", Jav, Er_azon, Enaplo, Edatum";
constexpr int correctionColumnCount = 4;

struct Shape {
    std::string headInsert, furtherInsert;
    std::string_view mark;
    std::string_view due;
    bool corrected;
};

std::string insertInto(std::string_view table, const std::string& columns, int count) {
    std::string sql = "insert into " + std::string(table) + " (" + columns + ") values (";
    for (int i = 1; i <= count; ++i)
        sql += (i == 1 ? "?" : ", ?") + std::to_string(i);
    return sql + ')';
}

Shape shapeOf(Selection selection) {
    const bool corrected = selection == Selection::corrected;
    const std::string_view table = corrected ? "Leval_jav" : "Leval_er";
    const std::string every(everyRow);
    const std::string head = every + std::string(headRow) + std::string(corrected ? correctionColumns : "");
    return {
        insertInto(table, head, everyRowColumns + headRowColumns + (corrected ? correctionColumnCount : 0)),
        insertInto(table, every, everyRowColumns),
        corrected ? "update BETEG set FLOPPY2=1 where rowid=?1" : "update BETEG set FLOPPY=1 where rowid=?1",
        // The catalogue's texts compare without regard to case.
        corrected ? "FLOPPY2=0 and (JAV='1' or JAV='2')" : "FLOPPY=0 and JAV='0'", corrected};
}

// --- the walk ----------------------------------------------------------------------------------------------

// A write transaction that keeps what was done when a fault passes through.
class KeptTransaction {
  public:
    explicit KeptTransaction(Database& database) : m_database(database) { begin(); }
    ~KeptTransaction() {
        try {
            commit();
        } catch (const Fault&) {
            // The first fault is on its way to the user. What could not be committed is gone whole.
            try {
                if (m_database.inTransaction()) m_database.execute("rollback");
            } catch (const Fault&) {
            }
        }
    }
    KeptTransaction(const KeptTransaction&) = delete;
    KeptTransaction& operator=(const KeptTransaction&) = delete;

    void begin() { m_database.execute("begin immediate"); }
    // The engine itself rolls back after some faults (a full disk); then there is nothing to commit.
    void commit() {
        if (m_database.inTransaction()) m_database.execute("commit");
    }

  private:
    Database& m_database;
};

struct Line {
    std::string code, quantity, character;
    bool codeNull = false, quantityNull = false;
};

class Flattener {
  public:
    Flattener(Workstation& station, Selection selection)
        : m_shape(shapeOf(selection)), m_data(station.files[DataFile::tetdata]),
          m_scratch(station.files[DataFile::tetseged]), m_sheet(m_data.query(sheetSelect)),
          m_patient(m_data.query(patientSelect)), m_line(m_data.query(lineSelect)),
          m_mark(m_data.query(m_shape.mark)), m_headRow(m_scratch.query(m_shape.headInsert)),
          m_furtherRow(m_scratch.query(m_shape.furtherInsert)), m_head(m_headRow), m_further(m_furtherRow) {}

    // Rows of one sheet and its mark.
    qint64 flatten(qint64 rowid) {
        m_sheet.bind(1, rowid);
        if (!m_sheet.next()) { // gone since the selection was made
            m_sheet.reset();
            return 0;
        }
        readLines();
        const std::size_t rows = (m_lineCount + rowLines - 1) / rowLines;
        for (std::size_t row = 0; row < rows; ++row)
            row == 0 ? writeHeadRow() : writeFurtherRow(row);
        m_sheet.reset();
        m_mark.bind(1, rowid).run();
        return static_cast<qint64>(rows);
    }

  private:
    void readLines() {
        m_lineCount = 0;
        m_line.bindBorrowed(1, trimmed(m_sheet.bytes(AZONOSITO)));
        while (m_line.next()) {
            if (m_lineCount == linesPerSheet)
                throw Fault(fault::subscript,
                            u"Egy adatlapon legfeljebb %1 beavatkozás lehet!"_s.arg(linesPerSheet));
            Line& line = m_lines[m_lineCount++];
            line.codeNull = m_line.isNull(0);
            line.code.assign(m_line.bytes(0));
            line.quantityNull = m_line.isNull(1);
            line.quantity.assign(m_line.bytes(1));
            line.character.assign(m_line.bytes(2));
        }
        m_line.reset();
    }

    void writeEveryRowColumns(RowBinder& row, std::size_t number) {
        row.as(m_sheet, SZAKREND);
        row.as(m_sheet, NAPLO);
        for (std::size_t i = number * rowLines; i < (number + 1) * rowLines; ++i) {
            if (i >= m_lineCount) { // behind the last line stand empty texts, not Nulls
                row.text({});
                row.text({});
                row.text({});
                continue;
            }
            const Line& line = m_lines[i];
            line.codeNull ? row.null() : row.text(line.code);
            line.quantityNull ? row.null() : row.text(line.quantity);
            row.text(line.character);
        }
    }

    void writeHeadRow() {
        writeEveryRowColumns(m_head, 0);
        for (const int column : {ORVKOD, IGENYLO, BeutOrvos, BeutIndok})
            m_head.as(m_sheet, column);
        m_head.digits(m_sheet, BeutaloKelte);
        m_head.digits(m_sheet, F_DATUM);
        m_head.hourAndMinute(m_sheet, F_IDO);
        writePatient();
        m_head.as(m_sheet, TERITES);
        m_head.number(m_sheet, TerReszlDij);
        for (const int column :
             {ELL_TIP, DIAG1, DIAG2, DIAG3, DIAG4, DIAG5, TOVA, LABOR, RTG, CTMR, FIZIO, K_KEP, UTKLTG})
            m_head.as(m_sheet, column);
        m_head.both(m_sheet, BALESET1, BALESET2);
        for (const int column : {RECEPT, GYOGYSEG, GYOGYFURD, ElszNyil, VizitDij, VizitdijFizMod})
            m_head.as(m_sheet, column);
        if (m_shape.corrected) {
            for (const int column : {JAV, ER_AZON, ENAPLO})
                m_head.as(m_sheet, column);
            m_head.digits(m_sheet, EDATUM);
        }
        m_head.run();
        m_patient.reset(); // its texts were borrowed until now
    }

    // Without a patient these columns stay Null, and the sheet is reported all the same.
    void writePatient() {
        bool found = false;
        if (!m_sheet.isNull(PaciensId)) {
            m_patient.bind(1, m_sheet.integer(PaciensId));
            found = m_patient.next();
        }
        if (!found) {
            for (int i = 0; i < patientColumns; ++i)
                m_head.null();
            return;
        }
        m_head.as(m_patient, Allampol_rov);
        m_head.as(m_patient, TAJ);
        m_head.firstCharacter(m_patient, Azon_Tipus);
        m_head.firstCharacter(m_patient, Nem);
        m_head.digits(m_patient, Szul_Dat);
        m_head.as(m_patient, Irszam);
    }

    void writeFurtherRow(std::size_t number) {
        writeEveryRowColumns(m_further, number);
        m_further.run();
    }

    const Shape m_shape;
    Database& m_data;
    Database& m_scratch;
    Query m_sheet, m_patient, m_line, m_mark, m_headRow, m_furtherRow;
    RowBinder m_head, m_further;
    std::array<Line, linesPerSheet> m_lines;
    std::size_t m_lineCount = 0;
};

} // namespace

qint64 countSheets(Workstation& station) {
    Query count = station.files[DataFile::tetdata].query("select count(*) from BETEG");
    return count.next() ? count.integer(0) : 0;
}

void emptyScratchTables(Workstation& station) {
    Database& scratch = station.files[DataFile::tetseged];
    scratch.execute("delete from Leval_er");
    scratch.execute("delete from Leval_jav");
}

PeriodCondition periodCondition(const QString& from, const QString& to) {
    const std::string lower = from.toStdString();
    const std::string upper = to.toStdString();
    if (from.size() == periodLength && to.size() == periodLength)
        // The same as comparing the first seven characters: U+10FFFF sorts behind whatever may follow them.
        return {"F_DATUM>=?1 and F_DATUM<?2", lower, upper + "\xF4\x8F\xBF\xBF"};
    return {"substr(F_DATUM,1,7)>=?1 and substr(F_DATUM,1,7)<=?2", lower, upper};
}

std::vector<qint64> dueSheets(Workstation& station, Selection selection, const QString& from,
                              const QString& to, EventTurn& turn) {
    const PeriodCondition period = periodCondition(from, to);
    Database& data = station.files[DataFile::tetdata];
    // The index alone gives the rows of the period, by date. Sorted here and not by the engine, which would
    // sort them all before it gives the first; looked at in stored order, where neighbours share a page.
    const ReadTransaction reading(data);
    std::vector<qint64> sheets;
    {
        Query inPeriod = data.query("select rowid from BETEG where " + period.sql,
                                    std::string_view(period.lower), std::string_view(period.upper));
        while (inPeriod.next()) {
            sheets.push_back(inPeriod.integer(0));
            if ((sheets.size() & 63) == 0 && turn.due()) turn.serve();
        }
    }
    std::sort(sheets.begin(), sheets.end());
    Query due = data.query("select 1 from BETEG where rowid=?1 and " + std::string(shapeOf(selection).due));
    std::size_t kept = 0;
    for (std::size_t i = 0; i < sheets.size(); ++i) {
        due.bind(1, sheets[i]);
        if (due.next()) sheets[kept++] = sheets[i];
        due.reset();
        if ((i & 63) == 0 && turn.due()) turn.serve();
    }
    sheets.resize(kept);
    return sheets;
}

qint64 flattenSheets(Workstation& station, Selection selection, const std::vector<qint64>& sheets,
                     EventTurn& turn, ReportProgress& progress) {
    KeptTransaction scratch(station.files[DataFile::tetseged]);
    KeptTransaction marks(station.files[DataFile::tetdata]);
    Flattener flattener(station, selection);
    const auto total = static_cast<qint64>(sheets.size());
    qint64 rows = 0;
    qint64 position = 0;
    int uncommitted = 0;
    for (const qint64 sheet : sheets) {
        rows += flattener.flatten(sheet);
        ++position;
        if (++uncommitted == sheetsPerCommit) {
            uncommitted = 0;
            marks.commit();
            marks.begin();
        }
        if (position == total || turn.due()) {
            if (turn.displayDue() || position == total) progress.moved(preparing, position, total);
            turn.serve();
        }
    }
    marks.commit();
    scratch.commit();
    return rows;
}

} // namespace vandrel
