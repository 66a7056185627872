#include "foundation/start_checks.h"

#include "foundation/row_values.h"

#include <array>
#include <optional>

using namespace Qt::StringLiterals;

namespace vandrel {

namespace {

constexpr std::array neededFiles = {DataFile::tetdata, DataFile::tetmod, DataFile::beav, DataFile::diagnos};

// Whether the log of checks has the field TAJ; nullopt when the table cannot be opened.
std::optional<bool> logHasTaj(Workstation& station) {
    try {
        Query fields =
            station.files[DataFile::TAJKapu].query("select name from pragma_table_info('Tranzakciok')");
        bool tableThere = false;
        while (fields.next()) {
            tableThere = true;
            if (fields.text(0).compare("TAJ"_L1, Qt::CaseInsensitive) == 0) return true;
        }
        return tableThere ? std::optional(false) : std::nullopt;
    } catch (const Fault&) {
        return std::nullopt; // errors while opening are no matter of the format check
    }
}

bool hasRecord(Database& database, std::string_view sql) {
    return database.query(sql).next();
}

} // namespace

bool examineDataFiles(Workstation& station) {
    try {
        station.files.renewScratch();
    } catch (const Fault&) {
        // Keeps nobody from the work: a report or list tries again and tells of it.
    }
    bool canRun = true;
    for (const DataFile file : neededFiles) {
        const QString wrong = station.files.examine(file);
        if (wrong.isEmpty()) continue;
        station.dialogue.tell(wrong, u"Hiba"_s);
        canRun = false;
    }
    if (!canRun) return false;
    // The older layout is the format check's matter: it has a message of its own.
    const QString wrong = station.files.examine(DataFile::TAJKapu);
    if (!wrong.isEmpty() && logHasTaj(station) != std::optional(false))
        station.dialogue.tell(wrong, u"Hiba"_s);
    return true;
}

bool VerzioEllenorzesek(Workstation& station) {
    if (logHasTaj(station) != std::optional(false)) return true;
    station.dialogue.tell(
        u"Az Ön adatbázis formátuma a 2.21-es verziónak nem felel meg, ezért konvertálásra van "
        "szükség, mely kevesebb, mint 1 perc alatt lezajlik.\n"
        "A konvertálás megkezdéséhez a Szerviz tevékenységek->Konvertálás->Vandrel 2.21-re "
        "menüpontot kell elindítani!"_s,
        programTitle, Icon::warning);
    return false;
}

void readAttunes(Workstation& station) {
    try {
        const std::optional<Query> first = firstRow(station.files[DataFile::tetdata], "EGYEBPAR", "Attunes");
        station.Attunes = !first || first->isNull(0) || first->integer(0) != 0;
    } catch (const Fault&) {
        // How the windows look is no reason to keep anybody from the work.
    }
}

void clearAttunes(Workstation& station) {
    try {
        const ColumnValue off{"Attunes", qint64(0)};
        updateFirstRow(station.files[DataFile::tetdata], "EGYEBPAR", {&off, 1});
    } catch (const Fault&) {
        // As above; the next activation tries again.
    }
}

InstitutionAnswer checkInstitution(Workstation& station, QStringList& warnings) {
    if (hasRecord(station.files[DataFile::tetdata], "select 1 from intezet"))
        return InstitutionAnswer::filled;
    if (station.dialogue.ask(u"Az intézeti adatok nincsenek kitöltve!Kívánja most kitölteni?"_s)) {
        warnings << u"Az intézeti adatok nincsenek kitöltve!"_s;
        return InstitutionAnswer::fillNow;
    }
    warnings << u"Az intézeti adatok nincsenek kitöltve! Kitöltés: Szerviz tevékenységek->Intézmény"_s;
    return InstitutionAnswer::fillLater;
}

void checkFirstStart(Workstation& station, QStringList& warnings) {
    Database& data = station.files[DataFile::tetdata];
    {
        const std::optional<Query> flag = firstRow(data, "Beallitasok", "Elso_inditas");
        if (!flag || flag->integer(0) == 0) return;
    }
    Database& dictionaries = station.files[DataFile::tetmod];
    if (!hasRecord(dictionaries, "select 1 from Orvosok"))
        warnings << u"Orvoskódok nincsenek kitöltve! Kitöltés: Szerviz "
                    "tevékenységek->Adatbázisok karbantartása->Orvoskódok"_s;
    if (!hasRecord(dictionaries, "select 1 from Szakrend"))
        warnings << u"Szakrendelő kódok nincsenek kitöltve! Kitöltés: Szerviz "
                    "tevékenységek->Adatbázisok karbantartása->Szakrendelő kódszótár"_s;
    const ColumnValue started{"Elso_inditas", qint64(0)};
    updateFirstRow(data, "Beallitasok", {&started, 1});
}

} // namespace vandrel
