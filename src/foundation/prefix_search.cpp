// Three roads to the same row: an index over the first characters for short texts, a range of the column's
// index for longer ones, and a plain walk for letters that the engine cannot fold.
#include "foundation/prefix_search.h"

#include "foundation/catalogue.h"
#include "platform/text_compare.h"

#include <algorithm>

namespace vandrel {

namespace {

// Brackets: a name that is not there is a fault, where a name in double quotes would turn into a text.
std::string quoted(std::string_view name) {
    return '[' + std::string(name) + ']';
}

bool plainAscii(const QString& text) {
    return std::ranges::all_of(text, [](QChar c) { return c.unicode() >= 0x20 && c.unicode() < 0x7f; });
}

std::optional<qint64> walk(Database& database, const std::string& from, const std::string& column,
                           const QString& text) {
    Query rows = database.query("select rowid, " + column + from + " order by rowid");
    while (rows.next())
        if (startsWithText(rows.text(1), text)) return rows.integer(0);
    return std::nullopt;
}

} // namespace

std::optional<qint64> firstRowStartingWith(Database& database, std::string_view table,
                                           std::string_view column, const QString& text) {
    if (text.isEmpty()) return std::nullopt;
    const std::string name = quoted(column);
    const std::string from = " from " + quoted(table);
    if (!plainAscii(text)) return walk(database, from, name, text);
    if (text.size() <= catalogue::typedAheadLength) {
        // Equal entries of the index lie in the table's order: the first is the answer. Without the index the
        // engine walks the table and stops at the first.
        Query first =
            database.query("select rowid" + from + " where substr(" + name + ",1," +
                               std::to_string(text.size()) + ") = ?1 collate nocase order by rowid limit 1",
                           text);
        return first.next() ? std::optional(first.integer(0)) : std::nullopt;
    }
    // Behind every text that begins so; nothing that people type sorts behind U+10FFFF.
    const QString behind = text + QString::fromUcs4(U"\U0010FFFF", 1);
    Query smallest = database.query("select min(rowid)" + from + " where " + name +
                                        ">=?1 collate nocase and " + name + "<?2 collate nocase",
                                    text, behind);
    if (!smallest.next() || smallest.isNull(0)) return std::nullopt;
    return smallest.integer(0);
}

} // namespace vandrel
