#include "reports/report_run.h"

#include "foundation/file_checks.h"
#include "platform/kept_transaction.h"
#include "reports/original_report.h"
#include "reports/report_period.h"
#include "reports/report_target.h"
#include "reports/selection.h"

using namespace Qt::StringLiterals;

namespace vandrel {

namespace {

using Result = ReportOutcome::Result;

const QString noData = u"Nincs a feltételeknek megfelelő adat!\n"
                       "Lehetséges hibák: \n"
                       "\t - a megadott dátumintervallumra a jelentés egyszer más elkészült, "
                       "a floppy mezők visszaírása szükséges"_s;

struct ReportKind {
    const char* mode;
    const ItemisedReport& (*report)();
    void (*write)(Workstation&, const ReportRequest&, EventTurn&, ReportProgress&, KeptTransaction&,
                  ReportOutcome&);
};

constexpr ReportKind kinds[] = {{"0", originalReport, eredeti_floppy}};

// Null: the mode's report cannot be made yet.
const ReportKind* kindOf(const QString& mode) {
    for (const ReportKind& kind : kinds)
        if (mode == QLatin1StringView(kind.mode)) return &kind;
    return nullptr;
}

// Which sheet and column the writer stopped at, in place of its fault's text.
void nameFaultyRecord(Workstation& station, const std::vector<qint64>& sheets, ReportOutcome& outcome) {
    if (outcome.faultyRecord == 0) return;
    const std::string_view column = sourceOf(outcome.faultyColumn);
    QString key;
    try {
        key = keyOfRow(station, sheets, outcome.faultyRecord);
    } catch (const Fault&) {
        return; // the column's name alone is there
    }
    outcome.detail = u"Hibás adatlap: %1, mező: %2"_s.arg(
        key, QString::fromLatin1(column.data(), static_cast<qsizetype>(column.size())));
}

void tellFault(Workstation& station, const Fault& fault) {
    if (fault.number() == fault::diskNotReady)
        station.dialogue.tell(u"Nem található az elérési útvonal!"_s);
    else
        station.dialogue.tell(u"Hiba történt! Leválogatás nem futtatható"_s +
                              QString::number(fault.number()));
}

} // namespace

ReportOutcome runReport(Workstation& station, const ReportRequest& request, ReportProgress& progress) {
    ReportOutcome outcome;
    if (const std::optional<CheckFailure> unfilled = checkPeriods(request)) {
        tell(station.dialogue, *unfilled);
        return outcome;
    }
    const ReportKind* kind = kindOf(request.mode);
    if (kind == nullptr) {
        // Marks without a report would hide these sheets, so nothing is selected either.
        station.dialogue.tell(u"Ez a jelentés ebben a változatban még nem készíthető el!"_s, programTitle,
                              Icon::information);
        outcome.result = Result::notBuilt;
        return outcome;
    }

    const SheetSelection& selection = kind->report().selection;
    EventTurn turn(station.serveEvents, station.turnEvery);
    outcome.result = Result::notStarted;
    // From the question which sheets are due to the last file one transaction: a run that is killed has
    // marked nothing, and no other program marks or reports the same sheets meanwhile.
    std::optional<KeptTransaction> marks;
    std::vector<qint64> sheets;
    try {
        testTarget(station);
        if (!confirmWhole(station, filesOfReports, u"a jelentés"_s,
                          [&progress](const QString& name) { progress.checking(name); }))
            return outcome;
        progress.started();
        outcome.result = Result::broken;
        marks.emplace(station.files[DataFile::tetdata]);
        emptyScratchTables(station);
        sheets = dueSheets(station, selection, request.from, request.to, turn);
        outcome.sheets = static_cast<qint64>(sheets.size());
        progress.selectedSheets(outcome.sheets);
        if (sheets.empty()) {
            outcome.result = Result::noData;
            marks.reset();
            progress.noData();
            station.dialogue.tell(noData, u"Hiba!"_s);
            return outcome;
        }
        outcome.records = flattenSheets(station, selection, sheets, turn, progress);
    } catch (const Fault& fault) {
        marks.reset(); // kept, and no lock is held while a box is open
        outcome.detail = fault.text();
        tellFault(station, fault);
        return outcome;
    }
    kind->write(station, request, turn, progress, *marks, outcome);
    marks.reset();
    nameFaultyRecord(station, sheets, outcome);
    outcome.result = Result::writerEnded;
    return outcome;
}

} // namespace vandrel
