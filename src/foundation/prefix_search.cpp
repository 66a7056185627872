// Three roads to the same row: an index over the first characters for short texts, a range of the column's
// index for longer ones, and the ranges of a letter's forms for letters that the engine cannot fold.
#include "foundation/prefix_search.h"

#include "foundation/catalogue.h"
#include "platform/text_compare.h"

#include <QStringList>

#include <algorithm>
#include <iterator>

namespace vandrel {

namespace {

// Brackets: a name that is not there is a fault, where a name in double quotes would turn into a text.
std::string quoted(std::string_view name) {
    return '[' + std::string(name) + ']';
}

// Behind every text that begins so; nothing that people type sorts behind U+10FFFF.
QString behind(const QString& text) {
    return text + QString::fromUcs4(U"\U0010FFFF", 1);
}

// The engine folds only the letters of English: a text with any other letter is looked for in the ranges of
// that letter's forms, and each row found there is compared by the program itself.
std::optional<qint64> firstByForms(Database& database, const std::string& sql, const QString& text,
                                   qsizetype letterAt) {
    const QString head = text.left(letterAt);
    const QString letter = text.mid(letterAt, text[letterAt].isHighSurrogate() ? 2 : 1);
    QStringList forms = {letter, letter.toLower(), letter.toUpper()};
    forms.removeDuplicates();
    std::optional<qint64> first;
    for (const QString& form : forms) {
        Query rows = database.query(sql, head + form, behind(head + form));
        while (rows.next())
            if ((!first || rows.integer(0) < *first) && startsWithText(rows.text(1), text))
                first = rows.integer(0);
    }
    return first;
}

} // namespace

std::optional<qint64> firstRowStartingWith(Database& database, std::string_view table,
                                           std::string_view column, const QString& text) {
    // No column holds a zero character, and the engine would end the text there.
    if (text.isEmpty() || text.contains(QChar(u'\0'))) return std::nullopt;
    const std::string name = quoted(column);
    const std::string from = " from " + quoted(table);
    const std::string range = " where " + name + ">=?1 collate nocase and " + name + "<?2 collate nocase";
    const auto foreign = std::ranges::find_if(text, [](QChar c) { return c.unicode() > 0x7f; });
    if (foreign != text.end())
        return firstByForms(database, "select rowid, " + name + from + range, text,
                            std::distance(text.begin(), foreign));
    if (text.size() <= catalogue::typedAheadLength) {
        // Equal entries of the index lie in the table's order: the first is the answer. Without the index the
        // engine walks the table and stops at the first.
        Query first =
            database.query("select rowid" + from + " where substr(" + name + ",1," +
                               std::to_string(text.size()) + ") = ?1 collate nocase order by rowid limit 1",
                           text);
        return first.next() ? std::optional(first.integer(0)) : std::nullopt;
    }
    Query smallest = database.query("select min(rowid)" + from + range, text, behind(text));
    if (!smallest.next() || smallest.isNull(0)) return std::nullopt;
    return smallest.integer(0);
}

} // namespace vandrel
