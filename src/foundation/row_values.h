// A row of a table as a list of columns with their values: one list gives the insert, the update and what a
// one-row settings table holds. Knows no table by name.
#pragma once

#include "platform/database.h"

#include <QString>

#include <optional>
#include <span>
#include <string_view>
#include <variant>

namespace vandrel {

// A column that is left alone: Null in a new row, what it held in one that is there.
struct LeftAlone {};
using RowValue = std::variant<LeftAlone, QString, qint64, double>;

struct ColumnValue {
    std::string_view column; // a name of the catalogue
    RowValue value;
};

// Table names are the catalogue's. None of these opens a transaction; faults of the engine pass through.
// Adds a row at the end of the table and gives its rowid.
qint64 insertRow(Database& database, std::string_view table, std::span<const ColumnValue> values);
void updateRow(Database& database, std::string_view table, qint64 rowid, std::span<const ColumnValue> values);

// One-row settings tables: the first row counts, later ones are never read or written.
// The first row, ready to be read; columns as they stand in a select ("END_AZON", "Int_nev, irsz"). nullopt
// when the table is empty. No lock outlives the result.
std::optional<Query> firstRow(Database& database, std::string_view table, std::string_view columns);
// False, with nothing written, when the table is empty.
bool updateFirstRow(Database& database, std::string_view table, std::span<const ColumnValue> values);
// Adds the row when the table is empty.
void writeFirstRow(Database& database, std::string_view table, std::span<const ColumnValue> values);

} // namespace vandrel
