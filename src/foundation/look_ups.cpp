// Code to name over the dictionaries. Each asks the file once, by the code's index; the first row in the
// table's order counts.
#include "foundation/look_ups.h"

#include "foundation/prefix_search.h"
#include "foundation/row_values.h"

using namespace Qt::StringLiterals;

namespace vandrel {

namespace {

// The wanted column of the first row with that code; nullopt when there is no row, empty for Null.
std::optional<QString> nameOf(Workstation& station, DataFile file, const char* sql, const QString& code) {
    const QString wanted = code.trimmed();
    if (wanted.isEmpty()) return std::nullopt;
    Query row = station.files[file].query(sql, wanted);
    if (!row.next()) return std::nullopt;
    return row.text(0);
}

} // namespace

ProcedureEntry Visszaad_beav(Workstation& station, const QString& code) {
    Query row = station.files[DataFile::beav].query(
        "select BEAV_NEV, NEMET_PONT from BEAV where BEAV_KOD=?1 order by rowid limit 1", code.trimmed());
    if (!row.next()) return {u" "_s, 0.0};
    return {row.text(0), row.number(1)};
}

std::optional<QString> procedureCode(Workstation& station, const QString& code) {
    return nameOf(station, DataFile::beav,
                  "select BEAV_KOD from BEAV where BEAV_KOD=?1 order by rowid limit 1", code);
}

std::optional<QString> diagnosisCode(Workstation& station, const QString& code) {
    return nameOf(station, DataFile::diagnos,
                  "select D_KOD from DIAGNOS where D_KOD=?1 order by rowid limit 1", code);
}

std::optional<QString> unitCode(Workstation& station, const QString& code) {
    return nameOf(station, DataFile::tetmod,
                  "select REND_KOD from SZAKREND where REND_KOD=?1 order by rowid limit 1", code);
}

std::optional<QString> doctorCode(Workstation& station, const QString& code) {
    return nameOf(station, DataFile::tetmod,
                  "select ORVKOD from ORVOSOK where ORVKOD=?1 order by rowid limit 1", code);
}

std::optional<QString> Visszaad_Diagnos(Workstation& station, const QString& code) {
    return nameOf(station, DataFile::diagnos,
                  "select D_NEV from DIAGNOS where D_KOD=?1 order by rowid limit 1", code);
}

QString Visszaad_szakrend(Workstation& station, const QString& code) {
    return nameOf(station, DataFile::tetmod,
                  "select REND_NEV from SZAKREND where REND_KOD=?1 order by rowid limit 1", code)
        .value_or(QString());
}

double Visszaad_szakrend_szorzo(Workstation& station, const QString& code) {
    Query row = station.files[DataFile::tetmod].query(
        "select SZORZO from SZAKREND where REND_KOD=?1 order by rowid limit 1", code.trimmed());
    return row.next() ? row.number(0) : 1.0;
}

QString Visszaad_bekuldo(Workstation& station, const QString& code) {
    return nameOf(station, DataFile::tetmod, "select NEV from BEKULDO where KOD=?1 order by rowid limit 1",
                  code)
        .value_or(u" "_s);
}

QString Visszaad_orvos(Workstation& station, const QString& code) {
    return nameOf(station, DataFile::tetmod, "select NEV from ORVOSOK where ORVKOD=?1 order by rowid limit 1",
                  code)
        .value_or(QString());
}

QString patientCaption(Workstation& station, qint64 patientId) {
    Query row = station.files[DataFile::tetdata].query(
        "select Neve, TAJ from Paciensek where ID=?1 order by rowid limit 1", patientId);
    if (!row.next()) return {};
    return row.text(0) + u" ("_s + row.text(1) + u')';
}

QString procedureSummary(Workstation& station, const QString& sheetKey) {
    Query lines = station.files[DataFile::tetdata].query(
        "select BEAV from EUSZOLG where Azonosito=?1 order by rowid", sheetKey);
    QStringList parts;
    while (lines.next()) {
        const QString code = lines.text(0);
        parts << Visszaad_beav(station, code).name + u'(' + code + u')';
    }
    return parts.join(u',');
}

QString townByPrefix(Workstation& station, const QString& postalCode) {
    Database& dictionaries = station.files[DataFile::tetmod];
    const std::optional<qint64> row = firstRowStartingWith(dictionaries, "IRSZ", "IRSZ", postalCode);
    if (!row) return {};
    Query town = dictionaries.query("select NEV from IRSZ where rowid=?1", *row);
    return town.next() ? town.text(0) : QString();
}

QString townOf(Workstation& station, const QString& postalCode) {
    return nameOf(station, DataFile::tetmod, "select NEV from IRSZ where IRSZ=?1 order by rowid limit 1",
                  postalCode)
        .value_or(QString());
}

int weekOf(QDate date, QDate today) {
    const QDate newYear(today.year(), 1, 1);
    // The Monday that begins the week of the first of January. Weeks before it count down: 0, -1, ...
    const QDate firstMonday = newYear.addDays(1 - newYear.dayOfWeek());
    const qint64 days = firstMonday.daysTo(date);
    const qint64 weeks = days >= 0 ? days / 7 : (days - 6) / 7; // rounded down
    return static_cast<int>(weeks) + 1;
}

QString workstationLabel(Workstation& station) {
    const std::optional<Query> row = firstRow(station.files[DataFile::tetdata], "Gepazonosito", "Gepazon");
    const QString label = row ? row->text(0) : QString();
    return label.trimmed().isEmpty() ? QString() : label;
}

} // namespace vandrel
