#include "reports/original_report.h"

#include "foundation/look_ups.h"
#include "platform/code_page.h"
#include "reports/covering_note.h"
#include "reports/fault_policy.h"
#include "reports/institution.h"
#include "reports/record_table.h"
#include "reports/report_figures.h"
#include "reports/report_target.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QThread>

#include <array>
#include <unordered_map>

using namespace Qt::StringLiterals;

namespace vandrel {

namespace {

const QString noteName = u"kuldo.txt"_s;
constexpr int countDigits = 7;
constexpr std::size_t partSize = 1 << 16; // bytes handed to the file at once
constexpr unsigned long retryPause = 10;  // milliseconds between two tries of a locked file

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

// The points of all procedures, read at once: a month asks for thousands of different codes, and a question
// to the data file for each of them takes as long as the month's records.
class ProcedurePoints {
  public:
    explicit ProcedurePoints(Workstation& station) : m_station(&station) {}

    // As Visszaad_beav finds them: blanks around the code apart, without regard to case, the first of several
    // rows; 0 for an unknown code. Faults of the data file pass through.
    double of(std::string_view code) {
        if (!m_read) read();
        const auto found = m_points.find(key(code));
        return found != m_points.end() ? found->second : 0.0;
    }

  private:
    static std::string key(std::string_view code) {
        constexpr std::string_view blanks = " \t\n\v\f\r";
        const std::size_t first = code.find_first_not_of(blanks);
        if (first == std::string_view::npos) return {};
        return folded(code.substr(first, code.find_last_not_of(blanks) - first + 1));
    }
    static std::string folded(std::string_view code) {
        std::string result(code);
        for (char& c : result)
            if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
        return result;
    }
    void read() {
        Query row =
            m_station->files[DataFile::beav].query("select BEAV_KOD, NEMET_PONT from BEAV order by rowid");
        while (row.next())
            // Not trimmed: a row whose code was stored with blanks is found by no code.
            if (!row.isNull(0)) m_points.try_emplace(folded(row.bytes(0)), row.number(1));
        m_read = true;
    }

    Workstation* m_station;
    bool m_read = false;
    std::unordered_map<std::string, double> m_points;
};

class OriginalReport {
  public:
    OriginalReport(Workstation& station, const QString& period, EventTurn& turn, ReportProgress& progress,
                   ReportOutcome& outcome)
        : m_station(station), m_period(period), m_turn(turn), m_progress(progress), m_outcome(outcome),
          m_figures([points = ProcedurePoints(station)](std::string_view code) mutable {
              return points.of(code);
          }) {}

    void run() {
        try {
            if (!writeReport()) return;
            writeNote();
            statement([&] {
                makeEmptyFile(targetFile(m_station, QDir::separator() + m_institution.NBK_KOD + u".id"_s));
            });
            showNote(u"Adatbázis tömörítése..."_s, false);
        } catch (const Fault& fault) {
            tellFault(fault);
            return;
        }
        pack();
        showNote(u"Adatbázis tömörítése kész, a jelentés elkészült!\n"
                 "Kérem várjon, amíg a felbukkanó ablak automatikusan bezáródik!"_s,
                 true);
        m_outcome.complete = true;
    }

  private:
    template<class Work>
    void statement(Work&& work) {
        runStatement(
            writerFaults, [this] { return waitForLock(); }, std::forward<Work>(work));
    }

    bool waitForLock() {
        QThread::msleep(retryPause);
        m_turn.serve();
        return !m_progress.givesUpWaiting();
    }

    void tellFault(const Fault& fault) {
        m_amb.reset(); // closed as far as it was written
        if (reactionTo(writerFaults, fault.number()) == Reaction::wrongPath)
            m_station.dialogue.tell(u"A megadott útvonal hibás!"_s);
        else
            m_station.dialogue.tell(u"Hiba történt az adatkiírás során!"_s + QString::number(fault.number()),
                                    u"Hiba mentés közben"_s);
    }

    QString workingFile(const QString& name) const { return m_station.folder + '/'_L1 + name; }

    // False when the run ends here with a box of its own.
    bool writeReport() {
        Database& scratch = m_station.files[DataFile::tetseged];
        qint64 records = 0;
        statement([&] {
            Query count = scratch.query("select count(*) from Leval_er");
            if (count.next()) records = count.integer(0);
        });
        m_outcome.records = records;
        m_progress.outputRecords(records);

        const std::optional<Institution> institution = readInstitution(m_station);
        if (!institution) {
            // Nothing is left behind that could be taken for this month's report.
            QFile::remove(workingFile(u"tet.amb"_s));
            m_station.dialogue.tell(u"Nincsenek kitöltve az intézeti adatok!"_s, u"Hiba"_s);
            return false;
        }
        m_institution = *institution;
        // The code is part of file names and must not lead out of their folders.
        if (m_institution.NBK_KOD.contains('/'_L1) || m_institution.NBK_KOD.contains('\\'_L1))
            throw Fault(fault::pathNotFound, u"Az útvonal nem található: %1"_s.arg(m_institution.NBK_KOD));
        m_baseName = u"tet"_s + m_institution.NBK_KOD;
        statement([&] { m_amb->open(workingFile(m_baseName + u".amb"_s)); });
        if (m_amb->isOpen()) m_outcome.reportFile = workingFile(m_baseName + u".amb"_s);

        statement([&] { writeHeadBlock(records); });
        if (records == 0) {
            statement([&] { m_amb->close(); });
            m_station.dialogue.tell(u"Nincs adat![Hiba: ErFl-01]"_s, u"Hiba"_s);
            return false;
        }
        writeRecords(scratch, records);
        statement([&] { m_amb->close(); });
        return true;
    }

    void writeHeadBlock(qint64 records) {
        std::string block;
        for (const QString& line : headBlock(m_institution, m_period, records)) {
            const QByteArray utf8 = line.toUtf8();
            if (!code_page::appendUtf8(block, viewOf(utf8)))
                throw Fault(fault::invalidCall, u"Az intézet adatai nem írhatók a jelentésbe!"_s);
            block += "\r\n";
        }
        m_amb->writeBytes(block);
    }

    void writeRecords(Database& scratch, qint64 records) {
        static constexpr std::span<const RecordColumn> record(originalRecord);
        constexpr std::size_t firstCode = recordPlace(originalRecord, "Who_1");
        constexpr std::size_t unit = recordPlace(originalRecord, "R_azon");
        constexpr std::size_t placesPerPosition = 3; // code, quantity, character
        static_assert(recordPlace(originalRecord, "Who_6") ==
                      firstCode + (positionsPerRecord - 1) * placesPerPosition);

        const RecordFormatter formatter(record);
        std::array<RecordFormatter::Value, std::size(originalRecord)> values;
        std::array<ReportFigures::Position, positionsPerRecord> positions;
        std::string part;
        part.reserve(partSize + recordWidth(record) + 2);
        Query row = scratch.query(recordSelect(record, "Leval_er"));
        const auto flush = [&] {
            statement([&] {
                m_amb->writeBytes(part);
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
            } catch (const Fault&) {
                flush(); // as far as it was written: up to the column at fault
                throw;
            }
            for (std::size_t i = 0; i < positionsPerRecord; ++i) {
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
        statement([&] { note.open(workingFile(noteName)); });
        for (const QString& text : noteHead(m_institution, m_station.clock.today(), m_period))
            line(text);
        for (const UnitFigures& unit : m_figures.units())
            line(noteUnitLine(unit, Visszaad_szakrend(m_station, QString::fromStdString(unit.code))));
        for (const QString& text : noteFoot(m_figures.grandTotal(), m_figures.procedures()))
            line(text);
        statement([&] { note.close(); });
    }

    // Errors are ignored here, each step going on to the next one.
    void pack() {
        try {
            const QString archive = targetFile(m_station, m_baseName + u".arj"_s);
            // An archive of an earlier month must not pass for this one where the archiver fails.
            QFile::remove(archive);
            m_station.packer.start(m_station.folder, archive, m_baseName + u".amb"_s);
        } catch (const Fault&) {
        }
        try {
            const QString from = workingFile(noteName);
            const QString to = targetFile(m_station, QDir::separator() + noteName);
            // Where the target is the working folder the note is there already.
            if (QFileInfo(from).canonicalFilePath() != QFileInfo(to).canonicalFilePath())
                copyFileOver(from, to);
        } catch (const Fault&) {
        }
    }

    void showNote(const QString& text, bool buttonEnabled) {
        if (m_station.statusNote == nullptr) return;
        m_station.statusNote->showNote(text, buttonEnabled);
        m_turn.serve();
    }

    Workstation& m_station;
    const QString m_period;
    EventTurn& m_turn;
    ReportProgress& m_progress;
    ReportOutcome& m_outcome;
    ReportFigures m_figures;
    Institution m_institution;
    QString m_baseName;
    std::unique_ptr<CodePageFile> m_amb = std::make_unique<CodePageFile>();
};

} // namespace

void eredeti_floppy(Workstation& station, const QString& period, EventTurn& turn, ReportProgress& progress,
                    ReportOutcome& outcome) {
    OriginalReport(station, period, turn, progress, outcome).run();
}

} // namespace vandrel
