#include "sheet/counters.h"

#include "foundation/look_ups.h"
#include "platform/format.h"

#include <cmath>
#include <limits>

using namespace Qt::StringLiterals;

namespace vandrel {

namespace {

constexpr int labelLength = 3;
constexpr int numberLength = 7;
constexpr int keyLength = labelLength + numberLength;
constexpr qint64 lastNumber = 9'999'999;

QString lastKey(Workstation& station) {
    Query row =
        station.files[DataFile::tetdata].query("select END_AZON from AZONOSIT order by rowid limit 1");
    return row.next() ? row.text(0) : QString();
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

// Moves the counters behind one sheet, as its store would have done.
void moveBehind(Workstation& station, const QString& key) {
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
    advanceCounters(station, key, unit, doctor, number);
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
                     qint64 journal) {
    Database& data = station.files[DataFile::tetdata];
    if (data.execute("update AZONOSIT set END_AZON=?1 where rowid=(select min(rowid) from AZONOSIT)", key) ==
        0)
        data.execute("insert into AZONOSIT (END_AZON, Tp_naplo) values (?1, 0)", key);

    std::optional<qint64> row;
    {
        Query found = data.query("select rowid from [DEFAULT] where SZAKREND=?1 order by rowid limit 1",
                                 unit.trimmed());
        if (found.next()) row = found.integer(0);
    }
    std::optional<QString> lastDoctor;
    if (!doctor.trimmed().isEmpty()) lastDoctor = doctor;
    if (row)
        // TN, the last sick-pay journal number, is left alone.
        data.execute("update [DEFAULT] set SZAKREND=?1, ORVKOD=ifnull(?2,ORVKOD), NAPLO=?3 where rowid=?4",
                     unit.trimmed(), lastDoctor, journal, *row);
    else
        // TN starts with the sheet's sick-pay journal number once sheets carry one; till then it is 0.
        data.execute("insert into [DEFAULT] (SZAKREND, ORVKOD, NAPLO, TN) values (?1, ?2, ?3, 0)",
                     unit.trimmed(), lastDoctor, journal);
}

void repairCounters(Workstation& station) {
    QString last = lastKey(station);
    QString key = nextKey(station);
    // Without a label the number is read behind the key's third digit and comes round again one day: such a
    // key was given long ago, not by a broken store.
    const auto lost = [&] {
        return !key.isEmpty() && (key.size() == keyLength || key > last) && sheetStored(station, key);
    };
    if (!lost()) return; // the normal start writes nothing
    Transaction transaction(station.files[DataFile::tetdata]);
    while (lost()) {
        moveBehind(station, key);
        last = key;
        key = nextKey(station);
    }
    transaction.commit();
}

} // namespace vandrel
