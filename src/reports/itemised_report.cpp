#include "reports/itemised_report.h"

#include "foundation/institution_data.h"
#include "foundation/look_ups.h"
#include "platform/code_page.h"
#include "reports/procedure_points.h"
#include "reports/report_figures.h"
#include "reports/report_files.h"

#include <QFile>

#include <memory>

using namespace Qt::StringLiterals;

namespace vandrel {

namespace {

constexpr int countDigits = 7;
constexpr std::size_t partSize = 1 << 16; // bytes handed to the file at once

QString digits(const QString& text) {
    return text.left(4) + text.right(2);
}

// The eight lines in front of the records.
QStringList headBlock(const Institution& institution, const QString& period, qint64 records) {
    const QString& account = institution.Bankszamla;
    const QString& tax = institution.Adoig_szam; // the dashes drop out
    const QString blank(1, ' '_L1);
    return {
        institution.Szakrend_kod.left(4) + u"00000"_s + institution.NBK_KOD + blank,
        tax.mid(0, 8) + tax.mid(9, 1),
        tax.mid(11, 2) + blank + digits(period),
        QString::number(records).rightJustified(countDigits, '0'_L1),
        account.mid(0, 8) + blank,
        account.mid(9, 8) + blank,
        account.mid(18, 8) + blank,
        {},
    };
}

std::string_view viewOf(const QByteArray& bytes) {
    return {bytes.constData(), static_cast<std::size_t>(bytes.size())};
}

class ReportWriter {
  public:
    ReportWriter(Workstation& station, const ItemisedReport& report, const QString& period, EventTurn& turn,
                 ReportProgress& progress, KeptTransaction& marks, ReportOutcome& outcome)
        : m_station(station), m_report(report), m_period(period), m_turn(turn), m_progress(progress),
          m_marks(marks), m_outcome(outcome), m_files(station, turn, progress),
          m_figures([points = ProcedurePoints(station)](std::string_view code) mutable {
              return points.of(code);
          }) {}

    void run() {
        try {
            if (!writeReport()) return;
            writeNote();
            statement([&] { m_files.makeMarker(m_institution.NBK_KOD); });
            m_files.syncWorkingFile(fileName());
            m_files.syncWorkingFile(m_report.noteName);
            m_files.showNote(u"Adatbázis tömörítése..."_s, false);
        } catch (const Fault& fault) {
            m_file.reset(); // closed as far as it was written
            tellFault(fault);
            return;
        }
        // Deliberate: errors are ignored from here on, each step going on to the next one.
        ignoringFaults([&] { m_files.pack(m_baseName + u".arj"_s, fileName()); });
        ignoringFaults([&] { m_files.copyToTarget(m_report.noteName, true); });
        // A power cut after the success text must not leave marks without files.
        m_files.waitForPacking();
        for (const QString& name : {m_baseName + u".arj"_s, m_report.noteName})
            ignoringFaults([&] { m_files.syncOnTarget(name); });
        try {
            m_marks.commit();
        } catch (const Fault& fault) {
            tellFault(fault);
            return;
        }
        m_files.showNote(u"Adatbázis tömörítése kész, a jelentés elkészült!\n"
                         "Kérem várjon, amíg a felbukkanó ablak automatikusan bezáródik!"_s,
                         true);
        m_outcome.complete = true;
    }

  private:
    template<class Work>
    void statement(Work&& work) {
        m_files.statement(std::forward<Work>(work));
    }
    template<class Work>
    static void ignoringFaults(Work&& work) {
        try {
            work();
        } catch (const Fault&) {
        }
    }

    void tellFault(const Fault& fault) {
        keepMarks();
        m_outcome.detail = fault.text();
        m_files.tellFault(fault);
    }
    // No lock is held while a box is open.
    void keepMarks() {
        ignoringFaults([this] { m_marks.commit(); });
    }

    QString fileName() const { return m_baseName + m_report.extension; }

    // False when the run ends here with a box of its own.
    bool writeReport() {
        Database& scratch = m_station.files[DataFile::tetseged];
        qint64 records = 0;
        statement([&] {
            Query count = scratch.query("select count(*) from " + std::string(m_report.selection.table));
            if (count.next()) records = count.integer(0);
        });
        m_outcome.records = records;
        m_progress.outputRecords(records);

        const std::optional<Institution> institution = readInstitution(m_station);
        if (!institution) {
            // Nothing is left behind that could be taken for this month's report.
            QFile::remove(m_files.workingFile(u"tet"_s + m_report.extension));
            keepMarks();
            m_station.dialogue.tell(u"Nincsenek kitöltve az intézeti adatok!"_s, u"Hiba"_s);
            return false;
        }
        m_institution = *institution;
        ReportFiles::requireFileName(m_institution.NBK_KOD);
        m_baseName = u"tet"_s + m_institution.NBK_KOD;
        const QString path = m_files.workingFile(fileName());
        statement([&] { m_file->open(path); });
        if (m_file->isOpen()) m_outcome.reportFile = path;

        statement([&] { writeHeadBlock(records); });
        if (records == 0) {
            statement([&] { m_file->close(); });
            keepMarks();
            m_station.dialogue.tell(u"Nincs adat![Hiba: ErFl-01]"_s, u"Hiba"_s);
            return false;
        }
        writeRecords(scratch, records);
        statement([&] { m_file->close(); });
        return true;
    }

    void writeHeadBlock(qint64 records) {
        std::string block;
        for (const QString& line : headBlock(m_institution, m_period, records)) {
            const QByteArray utf8 = line.toUtf8();
            if (!code_page::appendLinePart(block, viewOf(utf8)))
                throw Fault(fault::invalidCall, u"Az intézet adatai nem írhatók a jelentésbe!"_s);
            block += "\r\n";
        }
        m_file->writeBytes(block);
    }

    void writeRecords(Database& scratch, qint64 records) {
        const std::span<const RecordColumn> record = m_report.record;
        const std::size_t firstCode = recordPlace(record, "Who_1");
        const std::size_t unit = recordPlace(record, "R_azon");
        constexpr std::size_t placesPerPosition = 3; // code, quantity, character

        const RecordFormatter formatter(record);
        std::vector<RecordFormatter::Value> values(record.size());
        std::array<ReportFigures::Position, positionsPerRow> positions;
        std::string part;
        part.reserve(partSize + recordWidth(record) + 2);
        Query row = scratch.query(recordSelect(record, m_report.selection.table));
        const auto flush = [&] {
            statement([&] {
                m_file->writeBytes(part);
                part.clear();
            });
            part.clear();
        };
        qint64 position = 0;
        while (row.next()) {
            for (std::size_t i = 0; i < values.size(); ++i)
                values[i] = row.optionalBytes(static_cast<int>(i));
            try {
                formatter.append(part, values);
                part += "\r\n";
            } catch (const RecordFault& fault) {
                m_outcome.faultyRecord = position + 1;
                m_outcome.faultyColumn = fault.column();
                flush(); // as far as it was written: up to the column at fault
                throw;
            }
            for (std::size_t i = 0; i < positionsPerRow; ++i) {
                const std::size_t at = firstCode + i * placesPerPosition;
                positions[i] = {values[at].value_or(""), values[at + 1].value_or("")};
            }
            m_figures.addRow(values[unit], positions);
            if (part.size() >= partSize) flush();
            ++position;
            const bool last = position == records;
            if (last || m_turn.due()) {
                if (last || m_turn.displayDue()) {
                    m_outcome.procedures = m_figures.procedures();
                    m_progress.procedures(m_outcome.procedures);
                    m_progress.moved(u"Kiírás: "_s, position, records);
                }
                m_turn.serve();
            }
        }
        flush();
    }

    void writeNote() {
        CodePageFile note;
        const auto line = [&](const QString& text) { statement([&] { note.writeLine(text); }); };
        statement([&] { note.open(m_files.workingFile(m_report.noteName)); });
        for (const QString& text : noteHead(m_report.note, m_institution, m_station.clock.today(), m_period))
            line(text);
        for (const UnitFigures& unit : m_figures.units())
            line(noteUnitLine(m_report.note, unit,
                              Visszaad_szakrend(m_station, QString::fromStdString(unit.code))));
        for (const QString& text : noteFoot(m_report.note, m_figures.grandTotal(), m_figures.procedures()))
            line(text);
        statement([&] { note.close(); });
    }

    Workstation& m_station;
    const ItemisedReport& m_report;
    const QString m_period;
    EventTurn& m_turn;
    ReportProgress& m_progress;
    KeptTransaction& m_marks;
    ReportOutcome& m_outcome;
    ReportFiles m_files;
    ReportFigures m_figures;
    Institution m_institution;
    QString m_baseName;
    std::unique_ptr<CodePageFile> m_file = std::make_unique<CodePageFile>();
};

} // namespace

void writeItemisedReport(Workstation& station, const ItemisedReport& report, const ReportRequest& request,
                         EventTurn& turn, ReportProgress& progress, KeptTransaction& marks,
                         ReportOutcome& outcome) {
    ReportWriter(station, report, request.*report.period, turn, progress, marks, outcome).run();
}

} // namespace vandrel
