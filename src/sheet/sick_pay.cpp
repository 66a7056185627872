#include "sheet/sick_pay.h"

#include "foundation/look_ups.h"
#include "foundation/row_values.h"
#include "platform/format.h"
#include "sheet/counters.h"

#include <string>
#include <vector>

using namespace Qt::StringLiterals;

namespace vandrel {

namespace {

constexpr int childAge = 12; // years; younger ones are on sick pay in a parent's name

// The columns of an episode that a panel shows, in the order of their reading.
struct EpisodeColumn {
    const char* column;
    QString SickPayEpisode::*field;
};
constexpr EpisodeColumn episodeColumns[] = {
    {"TAZON", &SickPayEpisode::TAZON},
    {"TSZAKREND", &SickPayEpisode::TSZAKREND},
    {"TTAJSZAM", &SickPayEpisode::TTAJSZAM},
    {"TNEM", &SickPayEpisode::TNEM},
    {"TBETNEV", &SickPayEpisode::TBETNEV},
    {"TSZULDAT", &SickPayEpisode::TSZULDAT},
    {"TIRSZAM", &SickPayEpisode::TIRSZAM},
    {"TCITY", &SickPayEpisode::TCITY},
    {"TUTCA", &SickPayEpisode::TUTCA},
    {"TDIAG", &SickPayEpisode::TDIAG},
    {"TNAPLOSZAM", &SickPayEpisode::TNAPLOSZAM},
    {"KKALLKEZD", &SickPayEpisode::KKALLKEZD},
    {"KEZDORVKOD", &SickPayEpisode::KEZDORVKOD},
    {"JAV", &SickPayEpisode::JAV},
    {"TRL", &SickPayEpisode::TRL},
    {"FELVMOD", &SickPayEpisode::FELVMOD},
    {"TAPJELL", &SickPayEpisode::TAPJELL},
    {"GYERTAJ", &SickPayEpisode::GYERTAJ},
    {"ELOZONAPLO", &SickPayEpisode::ELOZONAPLO},
};
// Null in an open episode: their fields then stay as they are.
constexpr EpisodeColumn endColumns[] = {
    {"KKALLVEG", &SickPayEpisode::KKALLVEG},
    {"MEGSZMOD", &SickPayEpisode::MEGSZMOD},
    {"ZAROORVKOD", &SickPayEpisode::ZAROORVKOD},
};

constexpr const char* openEpisode =
    "(TTAJSZAM=?1 or GYERTAJ=?1) and (MEGSZMOD is null or trim(MEGSZMOD)='') and TRL='0'";
// Deliberate: no brackets around the first two. The first row that holds the TAJ in TTAJSZAM is closed,
// whether it is open or not.
constexpr const char* episodeToEnd =
    "TTAJSZAM=?1 or GYERTAJ=?1 and (MEGSZMOD is null or trim(MEGSZMOD)='') and TRL='0'";
constexpr const char* episodeOfSheet = "TAZON=?1";

std::optional<qint64> findEpisode(Workstation& station, const char* condition, const QString& value) {
    Query row = station.files[DataFile::tetdata].query(
        "select rowid from TAPPENZ where " + std::string(condition) + " order by rowid limit 1", value);
    if (!row.next()) return std::nullopt;
    return row.integer(0);
}

template<std::size_t N>
Query selectEpisode(Workstation& station, const EpisodeColumn (&columns)[N], qint64 rowid) {
    std::string names = "ELETKOR";
    for (const EpisodeColumn& column : columns)
        names += std::string(", ") + column.column;
    return station.files[DataFile::tetdata].query("select " + names + " from TAPPENZ where rowid=?1", rowid);
}

void readRow(Workstation& station, qint64 rowid, SickPayEpisode& panel) {
    Query row = selectEpisode(station, episodeColumns, rowid);
    if (!row.next()) return;
    panel.eletkor = static_cast<int>(row.integer(0));
    int place = 0;
    for (const EpisodeColumn& column : episodeColumns)
        panel.*column.field = row.text(++place);
    // Blanks in a column that was never filled; 0 is the number of a row without an earlier one.
    for (QString* field : {&panel.TTAJSZAM, &panel.GYERTAJ, &panel.ELOZONAPLO})
        if (field->trimmed().isEmpty()) field->clear();
    if (panel.KKALLKEZD.trimmed().isEmpty()) panel.KKALLKEZD = format::emptyDate;
}

void readEnd(Workstation& station, qint64 rowid, SickPayEpisode& panel) {
    Query row = selectEpisode(station, endColumns, rowid);
    if (!row.next()) return;
    int place = 0;
    for (const EpisodeColumn& column : endColumns)
        if (const std::optional<QString> value = row.optionalText(++place)) panel.*column.field = *value;
}

// The read-only lines.
void fillLines(const SheetFields& sheet, SickPayEpisode& panel) {
    panel.TAZON = sheet.Azonosito;
    panel.TSZAKREND = sheet.Szakrend;
    panel.TSZULDAT = sheet.Szul_dat;
    panel.TIRSZAM = sheet.Irszam;
    panel.TCITY = sheet.City;
    panel.TUTCA = sheet.Cim;
    panel.TNEM = sheet.Nem;
    panel.TDIAG = sheet.Diag[0];
}

QString journalOfUnit(Workstation& station, const QString& unit) {
    Query row = station.files[DataFile::tetdata].query(
        "select TN from [DEFAULT] where SZAKREND=?1 order by rowid limit 1", unit.trimmed());
    return row.next() ? QString::number(row.integer(0) + 1) : u"1"_s;
}

void takeOn(Workstation& station, const SheetFields& sheet, SickPayEpisode& panel) {
    panel.TNAPLOSZAM = journalOfUnit(station, sheet.Szakrend);
    panel.eletkor = ageAt(sheet.Szul_dat, station.clock.today());
    panel.parentShown = panel.eletkor && *panel.eletkor < childAge;
    panel.TBETNEV = panel.parentShown ? QString() : sheet.Neve;
    panel.TTAJSZAM = panel.parentShown ? QString() : sheet.Szem_szam.trimmed();
    panel.GYERTAJ = panel.parentShown ? sheet.Szem_szam.trimmed() : QString();
    fillLines(sheet, panel);
    // Deliberate: this replaces the unit's number. Neither of the two moves when an episode is stored: the
    // number is a proposal that is typed over.
    if (const auto row = firstRow(station.files[DataFile::tetdata], "AZONOSIT", "Tp_naplo"))
        panel.TNAPLOSZAM = QString::number(row->integer(0) + 1);
}

CheckFailure refusalOf(const QString& message, const QString& field, const QString& title = programTitle) {
    return {message, title, Icon::critical, field};
}

using Panel = SickPayEpisode;

template<auto member>
bool empty(const Panel& panel) {
    return (panel.*member).trimmed().isEmpty();
}
template<auto member>
bool dateEmpty(const Panel& panel) {
    return empty<member>(panel) || panel.*member == format::emptyDate;
}
template<auto member>
bool parentMissing(const Panel& panel) {
    return panel.parentShown && empty<member>(panel);
}

constexpr OrderedCheck<const Panel&> takeOnChecks[] = {
    {empty<&Panel::FELVMOD>, u"Kitöltetlen: FELVÉTELI MÓD!", "FELVMOD", u"Hiba"},
    {empty<&Panel::TAPJELL>, u"Kitöltetlen: TÁPPÉNZ JELLEG!", "TAPJELL", u"Hiba"},
    {empty<&Panel::KEZDORVKOD>, u"Kitöltetlen: ORVOS PECSÉTSZÁM!", "KEZDORVKOD", u"Hiba"},
    {dateEmpty<&Panel::KKALLKEZD>, u"Kitöltetlen: KEZDŐ DÁTUM!", "KKALLKEZD", u"Hiba"},
};
constexpr OrderedCheck<const Panel&> endChecks[] = {
    {empty<&Panel::MEGSZMOD>, u"Kitöltetlen: MEGSZÜNTETÉS MÓDJA!", "MEGSZMOD", u"Hiba"},
    {empty<&Panel::ZAROORVKOD>, u"Kitöltetlen: ORVOS PECSÉTSZÁM!", "ZAROORVKOD", u"Hiba"},
    {dateEmpty<&Panel::KKALLVEG>, u"Kitöltetlen: ZÁRÓ DÁTUM!", "KKALLVEG", u"Hiba"},
};
constexpr OrderedCheck<const Panel&> parentChecks[] = {
    {parentMissing<&Panel::TBETNEV>, u"Kitöltetlen: SZÜLŐ NEVE!", "TBETNEV", u"Hiba"},
    {parentMissing<&Panel::TTAJSZAM>, u"Kitöltetlen: SZÜLŐ TAJ!", "TTAJSZAM", u"Hiba"},
};

qint64 numberOrZero(const QString& text) {
    return text.trimmed().isEmpty() ? 0 : journalNumber(text);
}

std::vector<ColumnValue> takeOnColumns(const StoreRun& run) {
    const SheetFields& sheet = run.record.fields;
    const SickPayEpisode& panel = *run.record.sickPay;
    const QDate today = run.station.clock.today();
    // Of a panel whose check never ran the age is computed now.
    const int age = panel.eletkor ? *panel.eletkor : ageAt(sheet.Szul_dat, today).value_or(childAge);
    const QString taj = sheet.Szem_szam.trimmed();
    const bool child = age < childAge;
    return {
        {"TAZON", sheet.Azonosito},
        {"TTAJSZAM", child ? panel.TTAJSZAM.trimmed() : taj},
        {"TBETNEV", child ? panel.TBETNEV : sheet.Neve},
        {"GYERTAJ", child ? taj : QString()},
        {"TNEM", sheet.Nem},
        {"TSZULDAT", sheet.Szul_dat},
        {"TIRSZAM", sheet.Irszam},
        {"TCITY", sheet.City},
        {"TUTCA", sheet.Cim},
        {"TSZAKREND", sheet.Szakrend},
        {"TDIAG", panel.TDIAG},
        {"TNAPLOSZAM", numberOrZero(panel.TNAPLOSZAM)},
        {"ELETKOR", qint64(age)},
        {"KKALLKEZD", panel.KKALLKEZD},
        {"KEZDORVKOD", panel.KEZDORVKOD},
        {"ELOZONAPLO", numberOrZero(panel.ELOZONAPLO)},
        {"THET", weekKey(panel.KKALLKEZD, today)},
        {"JAV", panel.JAV},
        {"TRL", panel.TRL},
        {"ATV", u"0"_s},
        {"FELVMOD", panel.FELVMOD},
        {"TAPJELL", panel.TAPJELL},
    };
}

} // namespace

EpisodeWork episodeWork(const QString& workCapacity) {
    const int code = workCapacity.trimmed().toInt(); // 0 for what is no number
    if (code == 1 || code == 2) return EpisodeWork::takeOn;
    if (code >= 3 && code <= 5) return EpisodeWork::end;
    return EpisodeWork::none;
}

WorkCapacityLeft leaveWorkCapacity(Workstation& station, const SheetFields& sheet,
                                   const SickPayEpisode& panel, bool altEng) {
    WorkCapacityLeft left{.value = sheet.K_kep, .refusal = {}, .panelOpens = false, .panel = panel};
    const QString code = sheet.K_kep.trimmed();
    if (sheet.Szem_szam.trimmed().isEmpty()) {
        left.refusal =
            refusalOf(u"A táppénzes adatok kitöltéséhez meg kell adni a páciens adatokat!"_s, u"Szem_szam"_s);
        return left;
    }
    if (sheet.Diag[0].trimmed().isEmpty()) {
        left.refusal = refusalOf(u"A táppénzes adatok kitöltéséhez meg kell a fődiagnózist!"_s, u"Diag1"_s);
        return left;
    }
    if (code.isEmpty() && altEng) left.value = u"0"_s;
    if (!code.isEmpty() && (code.size() != 1 || code < u"0"_s || code > u"5"_s)) {
        left.refusal = refusalOf(u"Nem megfelelő 'Ker. képesség elbírálás'kód!"_s, u"K_kep"_s, u"Hiba"_s);
        return left;
    }
    const EpisodeWork work = episodeWork(code);
    const std::optional<qint64> open = findEpisode(station, openEpisode, sheet.Szem_szam.trimmed());
    left.panel.parentShown = false;
    if (work == EpisodeWork::end && !open)
        left.refusal = refusalOf(u"Ez az eset nem zárható le, mert nem került még kiírásra!"_s, u"K_kep"_s);
    if (work == EpisodeWork::takeOn && open)
        left.refusal = refusalOf(u"A páciens táppénzes állománya már nyitott!"_s, u"K_kep"_s);
    if (left.refusal || work == EpisodeWork::none) return left;
    if (work == EpisodeWork::takeOn)
        takeOn(station, sheet, left.panel);
    else
        readRow(station, *open, left.panel);
    left.panelOpens = true;
    return left;
}

std::optional<CheckFailure> checkSickPayPanel(const SickPayEpisode& panel, const QString& workCapacity) {
    std::optional<CheckFailure> failure;
    switch (episodeWork(workCapacity)) {
    case EpisodeWork::takeOn:
        failure = firstFailure(takeOnChecks, panel);
        break;
    case EpisodeWork::end:
        failure = firstFailure(endChecks, panel);
        break;
    case EpisodeWork::none:
        break;
    }
    return failure ? failure : firstFailure(parentChecks, panel);
}

LoadedEpisode loadEpisode(Workstation& station, const SheetFields& sheet) {
    LoadedEpisode loaded;
    const EpisodeWork work = episodeWork(sheet.K_kep);
    if (work == EpisodeWork::none) return loaded;
    loaded.buttonShown = true;
    SickPayEpisode& panel = loaded.panel;
    if (const std::optional<qint64> own = findEpisode(station, episodeOfSheet, sheet.Azonosito)) {
        readRow(station, *own, panel);
        readEnd(station, *own, panel);
        panel.parentShown = work == EpisodeWork::takeOn && panel.eletkor.value_or(childAge) < childAge;
    } else if (work == EpisodeWork::end) {
        // The sheet ended an episode of another one: storing it again must not blank that one's end.
        if (const auto ended = findEpisode(station, episodeToEnd, sheet.Szem_szam.trimmed()))
            readEnd(station, *ended, panel);
    }
    return loaded;
}

void storeEpisode(StoreRun& run) {
    if (!run.record.sickPay) return;
    const SheetFields& sheet = run.record.fields;
    const SickPayEpisode& panel = *run.record.sickPay;
    Database& data = run.station.files[DataFile::tetdata];
    switch (episodeWork(sheet.K_kep)) {
    case EpisodeWork::none:
        return;
    case EpisodeWork::takeOn: {
        const std::vector<ColumnValue> columns = takeOnColumns(run);
        std::optional<qint64> own;
        if (sheet.correction) own = findEpisode(run.station, episodeOfSheet, sheet.Azonosito);
        if (own)
            updateRow(data, "TAPPENZ", *own, columns);
        else
            insertRow(data, "TAPPENZ", columns);
        return;
    }
    case EpisodeWork::end: {
        const auto ended = findEpisode(run.station, episodeToEnd, sheet.Szem_szam.trimmed());
        if (!ended) return;
        const ColumnValue columns[] = {
            {"MEGSZMOD", panel.MEGSZMOD},
            {"KKALLVEG", panel.KKALLVEG},
            {"ZAROORVKOD", panel.ZAROORVKOD},
            {"THETVEG", weekKey(panel.KKALLVEG, run.station.clock.today())},
        };
        updateRow(data, "TAPPENZ", *ended, columns);
        return;
    }
    }
}

qint64 sickPayJournal(const SheetRecord& record) {
    if (!record.sickPay || episodeWork(record.fields.K_kep) != EpisodeWork::takeOn) return 0;
    return numberOrZero(record.sickPay->TNAPLOSZAM);
}

std::optional<int> ageAt(const QString& birthDate, QDate today) {
    const std::optional<QDate> birth = format::parseDate(birthDate);
    if (!birth) return std::nullopt;
    const bool before =
        today.month() < birth->month() || (today.month() == birth->month() && today.day() < birth->day());
    return today.year() - birth->year() - (before ? 1 : 0);
}

QString weekKey(const QString& date, QDate today) {
    const std::optional<QDate> day = format::parseDate(date);
    if (!day) return {};
    const int week = weekOf(*day, today);
    return date.mid(2, 2) + (week <= 10 ? u"0"_s : QString()) + QString::number(week);
}

} // namespace vandrel
