#include "sheet/counters.h"

#include "foundation/look_ups.h"
#include "foundation/row_values.h"
#include "platform/format.h"

#include <cmath>
#include <limits>
#include <vector>

using namespace Qt::StringLiterals;

namespace vandrel {

namespace {

constexpr int labelLength = 3;
constexpr int numberLength = 7;
constexpr int keyLength = labelLength + numberLength;
constexpr qint64 lastNumber = 9'999'999;

QString lastKey(Workstation& station) {
    const std::optional<Query> row = firstRow(station.files[DataFile::tetdata], "AZONOSIT", "END_AZON");
    return row ? row->text(0) : QString();
}

// The key that the next new sheet gets; empty when the numbers are used up or the last key is no key.
QString nextKey(Workstation& station) {
    try {
        return workstationLabel(station) + nextRunningNumber(station);
    } catch (const Fault& fault) {
        // The next new sheet tells it.
        if (fault.number() == fault::overflow || fault.number() == fault::typeMismatch) return {};
        throw;
    }
}

// Moves the counters past one sheet, as its store would have done.
void movePast(Workstation& station, const QString& key) {
    QString unit, doctor, journal;
    {
        Query row = station.files[DataFile::tetdata].query(
            "select SZAKREND, ORVKOD, NAPLO from BETEG where AZONOSITO=?1 order by rowid desc limit 1", key);
        if (!row.next()) return;
        unit = row.text(0);
        doctor = row.text(1);
        journal = row.text(2);
    }
    qint64 number = 0; // a store refuses a journal number that is none, so this row came from elsewhere
    try {
        number = journalNumber(journal);
    } catch (const Fault&) {
    }
    qint64 sickPayJournal = 0;
    {
        Query episode = station.files[DataFile::tetdata].query(
            "select TNAPLOSZAM from TAPPENZ where TAZON=?1 order by rowid limit 1", key);
        if (episode.next()) sickPayJournal = episode.integer(0);
    }
    advanceCounters(station, key, unit, doctor, number, sickPayJournal);
}

} // namespace

QString nextRunningNumber(Workstation& station) {
    const QString key = lastKey(station);
    const QString digits = key.mid(labelLength, numberLength);
    bool good = true;
    // A key that was never given is number 0.
    const qint64 last = digits.trimmed().isEmpty() ? 0 : digits.toLongLong(&good);
    if (!good || last < 0)
        throw Fault(fault::typeMismatch, u"Az utoljára kiadott azonosító hibás: %1"_s.arg(key));
    if (last >= lastNumber)
        throw Fault(fault::overflow, u"Elfogytak az adatlap-azonosítók: az utolsó kiadott %1."_s.arg(key));
    return QString::number(last + 1).rightJustified(numberLength, u'0');
}

bool sheetStored(Workstation& station, const QString& key) {
    return station.files[DataFile::tetdata].query("select 1 from BETEG where AZONOSITO=?1", key).next();
}

qint64 journalNumber(const QString& journal) {
    const std::optional<double> value = format::parseNumber(journal);
    if (!value) throw Fault(fault::typeMismatch, u"A naplósorszám nem szám: %1"_s.arg(journal.left(40)));
    const double rounded = std::nearbyint(*value);
    if (std::fabs(rounded) > std::numeric_limits<qint32>::max())
        throw Fault(fault::overflow, u"A naplósorszám túl nagy: %1"_s.arg(journal.left(40)));
    return static_cast<qint64>(rounded);
}

void advanceCounters(Workstation& station, const QString& key, const QString& unit, const QString& doctor,
                     qint64 journal, qint64 sickPayJournal) {
    Database& data = station.files[DataFile::tetdata];
    const ColumnValue last{"END_AZON", key};
    if (!updateFirstRow(data, "AZONOSIT", {&last, 1})) {
        const ColumnValue first[] = {last, {"Tp_naplo", qint64(0)}};
        insertRow(data, "AZONOSIT", first);
    }

    std::optional<qint64> row;
    {
        Query found = data.query("select rowid from [DEFAULT] where SZAKREND=?1 order by rowid limit 1",
                                 unit.trimmed());
        if (found.next()) row = found.integer(0);
    }
    RowValue lastDoctor = LeftAlone{};
    if (!doctor.trimmed().isEmpty()) lastDoctor = doctor;
    std::vector<ColumnValue> values = {
        {"SZAKREND", unit.trimmed()}, {"ORVKOD", lastDoctor}, {"NAPLO", journal}};
    if (row) {
        updateRow(data, "DEFAULT", *row, values); // TN, the last sick-pay journal number, is left alone
    } else {
        values.push_back({"TN", sickPayJournal});
        insertRow(data, "DEFAULT", values);
    }
}

void repairCounters(Workstation& station) {
    QString last = lastKey(station);
    QString key = nextKey(station);
    // Without a label the number is read after the key's third digit and comes round again one day: such a
    // key was given long ago, not by a broken store.
    const auto lost = [&] {
        return !key.isEmpty() && (key.size() == keyLength || key > last) && sheetStored(station, key);
    };
    if (!lost()) return; // the usual case writes nothing
    Transaction transaction(station.files[DataFile::tetdata]);
    last = lastKey(station); // another program may have moved them while this one waited for the file
    key = nextKey(station);
    while (lost()) {
        movePast(station, key);
        last = key;
        key = nextKey(station);
    }
    transaction.commit();
}

} // namespace vandrel
