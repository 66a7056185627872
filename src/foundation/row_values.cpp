#include "foundation/row_values.h"

#include <string>

namespace vandrel {

namespace {

// Brackets: DEFAULT is a word of the language, and a table that is missing is a fault.
std::string named(std::string_view table) {
    return '[' + std::string(table) + ']';
}

bool written(const ColumnValue& value) {
    return !std::holds_alternative<LeftAlone>(value.value);
}

int bindWritten(Query& statement, std::span<const ColumnValue> values) {
    int place = 0;
    for (const auto& [column, value] : values) {
        if (const auto* text = std::get_if<QString>(&value)) statement.bind(++place, *text);
        if (const auto* whole = std::get_if<qint64>(&value)) statement.bind(++place, *whole);
        if (const auto* number = std::get_if<double>(&value)) statement.bind(++place, *number);
    }
    return place;
}

} // namespace

qint64 insertRow(Database& database, std::string_view table, std::span<const ColumnValue> values) {
    std::string names, places;
    int place = 0;
    for (const ColumnValue& value : values) {
        if (!written(value)) continue;
        if (place != 0) {
            names += ',';
            places += ',';
        }
        names += value.column;
        places += '?' + std::to_string(++place);
    }
    Query insert = database.query("insert into " + named(table) + " (" + names + ") values (" + places + ')');
    bindWritten(insert, values);
    insert.run();
    return database.lastRowId();
}

void updateRow(Database& database, std::string_view table, qint64 rowid,
               std::span<const ColumnValue> values) {
    std::string assignments;
    int place = 0;
    for (const ColumnValue& value : values) {
        if (!written(value)) continue;
        if (place != 0) assignments += ',';
        assignments += value.column;
        assignments += "=?" + std::to_string(++place);
    }
    if (place == 0) return;
    Query update = database.query("update " + named(table) + " set " + assignments + " where rowid=?" +
                                  std::to_string(place + 1));
    update.bind(bindWritten(update, values) + 1, rowid);
    update.run();
}

std::optional<Query> firstRow(Database& database, std::string_view table, std::string_view columns) {
    Query row = database.query("select " + std::string(columns) + " from " + named(table) +
                               " order by rowid limit 1");
    if (!row.next()) return std::nullopt;
    return row;
}

bool updateFirstRow(Database& database, std::string_view table, std::span<const ColumnValue> values) {
    std::optional<qint64> rowid;
    if (const std::optional<Query> row = firstRow(database, table, "rowid")) rowid = row->integer(0);
    if (!rowid) return false;
    updateRow(database, table, *rowid, values);
    return true;
}

void writeFirstRow(Database& database, std::string_view table, std::span<const ColumnValue> values) {
    if (!updateFirstRow(database, table, values)) insertRow(database, table, values);
}

} // namespace vandrel
