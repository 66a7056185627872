// The procedure lines of a sheet: adding, deleting, and what the function keys put into the code field.
#include "sheet/procedure_lines.h"

#include "foundation/look_ups.h"
#include "foundation/prefix_search.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace vandrel {

namespace {

constexpr qsizetype longestQuantity = 2; // digits: the width of its column in the reports

// nullopt for what the table or a report would refuse later, when nobody knows the line any more.
std::optional<qint64> quantityNumber(const QString& quantity) {
    const QString digits = quantity.trimmed();
    const bool whole = std::ranges::all_of(digits, [](QChar c) { return c >= u'0' && c <= u'9'; });
    if (!whole || digits.size() > longestQuantity) return std::nullopt;
    return digits.toLongLong();
}

} // namespace

std::vector<ProcedureLine> procedureLines(Workstation& station, const QString& sheetKey) {
    Query rows = station.files[DataFile::tetdata].query(
        "select rowid, BEAV, MENNY, BeavJelleg from EUSZOLG where Azonosito=?1 order by rowid", sheetKey);
    std::vector<ProcedureLine> lines;
    while (rows.next())
        lines.push_back({rows.integer(0), rows.text(1), rows.text(2), rows.text(3)});
    return lines;
}

AddLineOutcome addProcedureLine(Workstation& station, const QString& sheetKey, const QString& code,
                                const QString& quantity, const QString& character) {
    if (quantity.trimmed().isEmpty()) {
        station.dialogue.tell(u"Mennyiség kitöltése kötelező!"_s);
        return AddLineOutcome::quantityRefused;
    }
    if (character.trimmed().isEmpty()) {
        station.dialogue.tell(u"Jelleg kitöltése kötelező!"_s);
        return AddLineOutcome::characterMissing;
    }
    const std::optional<QString> known = procedureCode(station, code);
    if (!known) {
        station.dialogue.tell(u"Nincs ilyen kód a beavatkozás törzsben!"_s, u"Hiba"_s);
        return AddLineOutcome::codeUnknown;
    }
    const std::optional<qint64> number = quantityNumber(quantity);
    if (!number) {
        station.dialogue.tell(u"A mennyiség csak egész szám lehet, legfeljebb két számjeggyel!"_s, u"Hiba"_s);
        return AddLineOutcome::quantityRefused;
    }
    station.files[DataFile::tetdata].execute(
        "insert into EUSZOLG (Azonosito, BEAV, MENNY, BeavJelleg) values (?1, ?2, ?3, ?4)", sheetKey, *known,
        *number, character);
    return AddLineOutcome::added;
}

bool deleteProcedureLine(Workstation& station, qint64 rowid) {
    if (rowid <= 0) {
        station.dialogue.tell(u"Nincs kijelölve törlendő beavatkozás!"_s, u"Hiba"_s);
        return false;
    }
    if (!station.dialogue.ask(u"Tényleg törölni akarja?"_s, u"Kérdés"_s, Icon::question, Asking::loss))
        return false;
    return station.files[DataFile::tetdata].execute("delete from EUSZOLG where rowid=?1", rowid) > 0;
}

QString getFunkcBeavKod(Workstation& station, int keyCode) {
    // Behind "Fn - " the row holds the key's code.
    Query row = station.files[DataFile::tetmod].query(
        "select BEAVKOD from FUNKCIO where substr(FUNKCIO,6)=?1 collate nocase order by rowid limit 1",
        QString::number(keyCode));
    return row.next() ? row.text(0) : QString();
}

QString procedureNameByPrefix(Workstation& station, const QString& code) {
    Database& dictionary = station.files[DataFile::beav];
    const std::optional<qint64> found = firstRowStartingWith(dictionary, "BEAV", "BEAV_KOD", code);
    if (!found) return {};
    Query name = dictionary.query("select BEAV_NEV from BEAV where rowid=?1", *found);
    return name.next() ? name.text(0) : QString();
}

} // namespace vandrel
