// The writing steps of a store, in their order. Everything that can be refused is refused before the first
// write, and no box stands while the data file is locked.
#include "sheet/sheet_store.h"

#include "platform/format.h"
#include "sheet/counters.h"
#include "sheet/patient_register.h"
#include "sheet/sheet_checks.h"
#include "sheet/sheet_settings.h"

#include <cmath>
#include <limits>
#include <variant>
#include <vector>

using namespace Qt::StringLiterals;

namespace vandrel {

namespace {

// The values that the tables keep as numbers, read before anything is written.
struct Numbers {
    qint64 visitFee = 0; // forints, 16 bits
    double partFee = 0;  // forints
    qint64 journal = 0;  // of a new sheet only
};

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

Numbers readNumbers(const SheetFields& fields) {
    Numbers numbers;
    numbers.visitFee = visitFee(fields.VizDijOsszeg);
    numbers.partFee = partFee(fields.TerReszlDij);
    if (!fields.correction) numbers.journal = journalNumber(fields.Naplo);
    return numbers;
}

// A column and what a store makes of it: a value, or nothing at all (Null in a new row, what it held in an
// edited one).
struct Stays {};
struct Column {
    const char* name;
    std::variant<Stays, QString, qint64, double> value;
};

QString blankWhenEmpty(const QString& text) {
    return text.trimmed().isEmpty() ? u" "_s : text;
}

std::variant<Stays, QString, qint64, double> unless(bool stays, const QString& text) {
    if (stays) return Stays{};
    return text;
}

std::vector<Column> sheetColumns(Workstation& station, const SheetFields& fields, const Numbers& numbers,
                                 qint64 patientId) {
    const auto date = [](const QString& mask) { return unless(mask == format::emptyDate, mask); };
    const std::array<UserField, 5> users = userFields(station);
    const auto user = [&](std::size_t i) {
        return unless(!users[i].inUse() || fields.Felh[i].trimmed().isEmpty(), fields.Felh[i]);
    };
    const QString taj = fields.Szem_szam.trimmed();
    return {
        {"AZONOSITO", fields.Azonosito},
        {"PaciensId", patientId},
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
        {"TerReszlDij", numbers.partFee},
        {"ElszNyil", blankWhenEmpty(fields.ElszNyil)},
        {"Termen", blankWhenEmpty(fields.Termen)},
        {"VizitDij", blankWhenEmpty(fields.VizitDij)},
        {"VizitdijFizMod", blankWhenEmpty(fields.VizitdijFizMod)},
        {"VizDijOsszeg", numbers.visitFee},
    };
}

// Adds a row, or edits the one given by its rowid.
void writeSheet(Database& data, const std::vector<Column>& columns, std::optional<qint64> editedRow) {
    std::vector<Column> written;
    for (const Column& column : columns)
        if (!std::holds_alternative<Stays>(column.value)) written.push_back(column);
    std::string names, places, assignments;
    for (std::size_t i = 0; i < written.size(); ++i) {
        const std::string comma = i == 0 ? "" : ",";
        const std::string place = '?' + std::to_string(i + 1);
        names += comma + written[i].name;
        places += comma + place;
        assignments += comma + written[i].name + '=' + place;
    }
    const int last = static_cast<int>(written.size());
    Query statement =
        data.query(editedRow ? "update BETEG set " + assignments + " where rowid=?" + std::to_string(last + 1)
                             : "insert into BETEG (" + names + ") values (" + places + ')');
    for (int i = 0; i < last; ++i) {
        const auto& value = written[static_cast<std::size_t>(i)].value;
        if (const auto* text = std::get_if<QString>(&value)) statement.bind(i + 1, *text);
        if (const auto* whole = std::get_if<qint64>(&value)) statement.bind(i + 1, *whole);
        if (const auto* number = std::get_if<double>(&value)) statement.bind(i + 1, *number);
    }
    if (editedRow) statement.bind(last + 1, *editedRow);
    statement.run();
}

// The row of a correction. Of a new sheet there must be none: two sheets under one key would share their
// procedure lines in the reports.
std::optional<qint64> rowToEdit(Workstation& station, const SheetFields& fields) {
    if (!fields.correction) {
        if (!sheetStored(station, fields.Azonosito)) return std::nullopt;
        // An earlier store got as far as the sheet but not to the counters.
        repairCounters(station);
        throw Fault(
            fault::dataConversion,
            u"Ezzel az azonosítóval (%1) már van eltárolt adatlap, még egyszer nem tárolható el. "
            u"Lépjen ki az adatlapból: a következő új adatlap új azonosítót kap."_s.arg(fields.Azonosito));
    }
    Query row = station.files[DataFile::tetdata].query(
        "select rowid from BETEG where AZONOSITO=?1 order by rowid limit 1", fields.Azonosito);
    if (!row.next())
        throw Fault(fault::noCurrentRecord, u"Nem található a javítandó adatlap: %1"_s.arg(fields.Azonosito));
    return row.integer(0);
}

} // namespace

StoreResult storeSheet(Workstation& station, const SheetFields& fields) {
    if (const std::optional<CheckFailure> refused = checkSheet(station, fields)) {
        tell(station.dialogue, *refused);
        return {StoreOutcome::refused, refused->field};
    }
    const Numbers numbers = readNumbers(fields);
    const std::optional<qint64> editedRow = rowToEdit(station, fields);

    // The register's question belongs to step 1; it is asked here so that no lock is held while its box
    // stands.
    std::optional<qint64> patientId = findPatientId(station, fields.Szem_szam);
    const bool known = patientId.has_value();
    const bool enter =
        !known &&
        station.dialogue.ask(u"Ilyen TAJ számú beteg nincs a Páciens törzsben!\nKivánja most rögzíteni?"_s,
                             u"Kérdés"_s);

    Database& data = station.files[DataFile::tetdata];
    {
        Transaction transaction(data);
        // 1. The patient register. Not entered: the sheet goes on with patient id 0.
        if (known)
            updatePatient(station, fields);
        else
            patientId = enter ? addPatient(station, fields) : 0;
        // 2. The neighbouring system's place.
        // 3. The sheet.
        writeSheet(data, sheetColumns(station, fields, numbers, *patientId), editedRow);
        // 4. The eligibility transaction's place: another file, after this one is safe.
        // 5. The sick-pay record's place, inside this transaction.
        // 6. The EU sheet's place, inside this transaction.
        transaction.commit();
    }
    // 7. The notice's place.
    // 8. A correction ends here without a word: the form stays open.
    if (fields.correction) return {StoreOutcome::stored, {}};

    // 9. and 10. The key and the unit's counters move together, after all the rest: a store that is broken
    // off before this is mended at the next start.
    try {
        Transaction transaction(data);
        advanceCounters(station, fields.Azonosito, fields.Szakrend, fields.Orvkod, numbers.journal);
        transaction.commit();
    } catch (const Fault& fault) {
        throw Fault(fault.number(),
                    u"Az adatlap eltárolása megtörtént, de a sorszámok nem írhatók: %1"_s.arg(fault.text()));
    }
    // 11.
    const bool another =
        station.dialogue.ask(u"Adatok eltárolása megtörtént!\nKíván új beteget rögzíteni?"_s);
    return {another ? StoreOutcome::storedAnother : StoreOutcome::storedDone, {}};
}

} // namespace vandrel
