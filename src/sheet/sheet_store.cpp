// The writing steps of a store, in their order. Everything that can be refused is refused before the first
// write, and no box stands while the data file is locked.
#include "sheet/sheet_store.h"

#include "foundation/row_values.h"
#include "platform/format.h"
#include "sheet/counters.h"
#include "sheet/patient_register.h"
#include "sheet/sheet_checks.h"
#include "sheet/sheet_settings.h"
#include "sheet/sick_pay.h"

#include <cmath>
#include <limits>
#include <vector>

using namespace Qt::StringLiterals;

namespace vandrel {

namespace {

// The amount as a 16-bit integer; an amount field that was never left may still be empty, which is 0.
qint64 visitFee(const QString& text) {
    if (text.trimmed().isEmpty()) return 0;
    const std::optional<double> value = format::parseNumber(text);
    if (!value) throw Fault(fault::typeMismatch, u"A vizitdíj összege nem szám: %1"_s.arg(text.left(40)));
    const double rounded = std::nearbyint(*value);
    if (rounded < std::numeric_limits<qint16>::min() || rounded > std::numeric_limits<qint16>::max())
        throw Fault(fault::overflow,
                    u"A vizitdíj összege túl nagy (legfeljebb 32767 Ft): %1"_s.arg(text.left(40)));
    return static_cast<qint64>(rounded);
}

double partFee(const QString& text) {
    if (text.trimmed().isEmpty()) return 0;
    const std::optional<double> value = format::parseNumber(text);
    if (!value)
        throw Fault(fault::typeMismatch, u"A részleges térítési díj nem szám: %1"_s.arg(text.left(40)));
    return *value;
}

template<typename Read>
auto ofField(const char* field, Read read) {
    try {
        return read();
    } catch (const Fault& fault) {
        throw FieldFault(fault.number(), fault.text(), QString::fromLatin1(field));
    }
}

void readNumbers(StoreRun& run) {
    const SheetFields& fields = run.record.fields;
    run.visitFee = ofField("VizDijOsszeg", [&] { return visitFee(fields.VizDijOsszeg); });
    run.partFee = ofField("TerReszlDij", [&] { return partFee(fields.TerReszlDij); });
    if (!fields.correction) run.journal = ofField("Naplo", [&] { return journalNumber(fields.Naplo); });
    run.sickPayJournal = sickPayJournal(run.record);
}

QString blankWhenEmpty(const QString& text) {
    return text.trimmed().isEmpty() ? u" "_s : text;
}

RowValue unless(bool leftAlone, const QString& text) {
    if (leftAlone) return LeftAlone{};
    return text;
}

std::vector<ColumnValue> sheetColumns(const StoreRun& run) {
    const SheetFields& fields = run.record.fields;
    const auto date = [](const QString& mask) { return unless(mask == format::emptyDate, mask); };
    const std::array<UserField, 5> users = userFields(run.station);
    const auto user = [&](std::size_t i) {
        return unless(!users[i].inUse() || fields.Felh[i].trimmed().isEmpty(), fields.Felh[i]);
    };
    const QString taj = fields.Szem_szam.trimmed();
    return {
        {"AZONOSITO", fields.Azonosito},
        {"PaciensId", run.patientId},
        {"SZAKREND", fields.Szakrend},
        {"IGENYLO", blankWhenEmpty(fields.Igenylo)},
        {"BeutaloKelte", date(fields.BeutaloKelte)},
        {"ORVKOD", blankWhenEmpty(fields.Orvkod)},
        {"NAPLO", fields.Naplo},
        {"SZEM_SZAM", unless(taj.isEmpty(), taj)},
        {"F_DATUM", date(fields.F_datum)},
        {"F_IDO", fields.F_ido + u":00"_s},
        {"TERITES", fields.Terites},
        {"BALESET1", fields.Baleset.mid(0, 1)},
        {"BALESET2", fields.Baleset.mid(1, 1)},
        {"ELL_TIP", fields.Ell_tip},
        {"TOVA", fields.Tova},
        {"LABOR", fields.Labor},
        {"RTG", fields.Rtg},
        {"CTMR", fields.Ctmr},
        {"K_KEP", fields.K_kep},
        {"FIZIO", fields.Fizio},
        {"UTKLTG", fields.Utkltg},
        {"RECEPT", fields.Recept},
        {"GYOGYSEG", fields.Gyogyseg},
        {"GYOGYFURD", fields.Gyogyfurd},
        {"FELH1", user(0)},
        {"FELH2", user(1)},
        {"FELH3", user(2)},
        {"FELH4", user(3)},
        {"FELH5", user(4)},
        {"DIAG1", blankWhenEmpty(fields.Diag[0])},
        {"DIAG2", blankWhenEmpty(fields.Diag[1])},
        {"DIAG3", blankWhenEmpty(fields.Diag[2])},
        {"DIAG4", blankWhenEmpty(fields.Diag[3])},
        {"DIAG5", blankWhenEmpty(fields.Diag[4])},
        {"JAV", fields.Jav},
        {"ER_AZON", blankWhenEmpty(fields.Er_azon)},
        {"EDATUM", date(fields.Edatum)},
        {"ENAPLO", blankWhenEmpty(fields.Enaplo)},
        // Cleared by every store, so that the selections see the sheet again.
        {"FLOPPY", qint64(0)},
        {"FLOPPY2", qint64(0)},
        {"NOTE", blankWhenEmpty(fields.NOTE)},
        {"EU_LAP", fields.EU_LAP},
        // These two may be stored empty, unlike the others.
        {"BeutOrvos", fields.BeutOrvos},
        {"BeutIndok", fields.BeutIndok},
        {"TerReszlDij", run.partFee},
        {"ElszNyil", blankWhenEmpty(fields.ElszNyil)},
        {"Termen", blankWhenEmpty(fields.Termen)},
        {"VizitDij", blankWhenEmpty(fields.VizitDij)},
        {"VizitdijFizMod", blankWhenEmpty(fields.VizitdijFizMod)},
        {"VizDijOsszeg", run.visitFee},
    };
}

// Two sheets under one key would share their procedure lines in the reports. The next new sheet moves the
// counters past the stored one.
void refuseTakenKey(StoreRun& run) {
    const SheetFields& fields = run.record.fields;
    if (fields.correction || !sheetStored(run.station, fields.Azonosito)) return;
    throw Fault(
        fault::dataConversion,
        u"Ezzel az azonosítóval (%1) már van eltárolt adatlap, még egyszer nem tárolható el. "
        u"Lépjen ki az adatlapból: a következő új adatlap új azonosítót kap."_s.arg(fields.Azonosito));
}

void askForRegister(StoreRun& run) {
    if (findPatientId(run.station, run.record.fields.Szem_szam)) return;
    run.enterPatient = run.station.dialogue.ask(
        u"Ilyen TAJ számú beteg nincs a Páciens törzsben!\nKivánja most rögzíteni?"_s, u"Kérdés"_s,
        Icon::question, Asking::writes);
}

// Another program may have entered the patient while the question was shown. Not entered: the sheet goes on
// with patient id 0.
void writeRegister(StoreRun& run) {
    const SheetFields& fields = run.record.fields;
    if (const std::optional<qint64> known = findPatientId(run.station, fields.Szem_szam)) {
        run.patientId = *known;
        updatePatient(run.station, fields);
    } else if (run.enterPatient) {
        run.patientId = addPatient(run.station, fields);
    }
}

void writeSheet(StoreRun& run) {
    const SheetFields& fields = run.record.fields;
    Database& data = run.station.files[DataFile::tetdata];
    const std::vector<ColumnValue> columns = sheetColumns(run);
    if (!fields.correction) {
        insertRow(data, "BETEG", columns);
        return;
    }
    std::optional<qint64> rowid;
    {
        Query row =
            data.query("select rowid from BETEG where AZONOSITO=?1 order by rowid limit 1", fields.Azonosito);
        if (row.next()) rowid = row.integer(0);
    }
    if (!rowid)
        throw Fault(fault::noCurrentRecord, u"Nem található a javítandó adatlap: %1"_s.arg(fields.Azonosito));
    updateRow(data, "BETEG", *rowid, columns);
}

struct OwnStep {
    StoreTime time;
    void (*run)(StoreRun&);
};

// Whether the key is free is asked before, so that nobody answers a question in vain, and again inside, where
// no other program can take it any more.
constexpr OwnStep ownSteps[] = {
    {StoreTime::before, readNumbers},    {StoreTime::before, refuseTakenKey},
    {StoreTime::before, askForRegister}, {StoreTime::inside, refuseTakenKey},
    {StoreTime::inside, writeRegister},  {StoreTime::inside, writeSheet},
    {StoreTime::inside, storeEpisode},
};

void runSteps(StoreTime time, StoreRun& run) {
    for (const OwnStep& step : ownSteps)
        if (step.time == time) step.run(run);
    if (run.station.storeSteps == nullptr) return;
    for (const StoreStep& step : run.station.storeSteps->offered)
        if (step.time == time) step.run(run);
}

// What comes after the sheet is safe: its faults say that it is.
template<class Work>
void afterTheSheet(const QString& text, const Work& work) {
    try {
        work();
    } catch (const Fault& fault) {
        throw Fault(fault.number(), text.arg(fault.text()));
    }
}

void moveCounters(const StoreRun& run) {
    const SheetFields& fields = run.record.fields;
    Transaction transaction(run.station.files[DataFile::tetdata]);
    advanceCounters(run.station, fields.Azonosito, fields.Szakrend, fields.Orvkod, run.journal,
                    run.sickPayJournal);
    transaction.commit();
}

} // namespace

StoreResult storeSheet(Workstation& station, const SheetRecord& record) {
    if (const std::optional<CheckFailure> refused = checkSheet(station, record)) {
        tell(station.dialogue, *refused);
        return {StoreOutcome::refused, refused->field};
    }
    StoreRun run{.station = station, .record = record};
    runSteps(StoreTime::before, run);
    {
        Transaction transaction(station.files[DataFile::tetdata]);
        runSteps(StoreTime::inside, run);
        transaction.commit();
    }
    afterTheSheet(u"Az adatlap eltárolása megtörtént, de az utána következő művelet nem sikerült: %1"_s,
                  [&] { runSteps(StoreTime::after, run); });
    // After a correction the form stays open, without a word.
    if (record.fields.correction) return {StoreOutcome::stored, {}};

    // Key and unit's counters move together, after all the rest: a store that is broken off before this is
    // mended by the next new sheet.
    afterTheSheet(u"Az adatlap eltárolása megtörtént, de a sorszámok nem írhatók: %1"_s,
                  [&] { moveCounters(run); });
    const bool another =
        station.dialogue.ask(u"Adatok eltárolása megtörtént!\nKíván új beteget rögzíteni?"_s);
    return {another ? StoreOutcome::storedAnother : StoreOutcome::storedDone, {}};
}

} // namespace vandrel
