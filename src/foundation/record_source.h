// The record source of a grid as text, and how sorting and narrowing rewrite it. The statement's shape is the
// behaviour; values stand beside it and are bound. Opens no file.
#pragma once

#include "foundation/catalogue.h"

#include <QString>

#include <optional>
#include <string>
#include <variant>
#include <vector>

namespace vandrel {

struct RecordSource {
    using Value = std::variant<qint64, double, QString>;

    std::string text; // a table's name, or a select over one table with place holders ?1, ?2 ...
    std::vector<Value> values = {};
    // What it is narrowed by, for the heading of the column; empty when it is not, or not by a column.
    std::string narrowedColumn = {};
    QString narrowedBy = {};
    bool narrowedByPart = false;
};

// Column types by the system's numbers.
enum class FieldType { other = 0, integer = 3, wholeLong = 4, number = 7, date = 8, text = 10, memo = 12 };
FieldType fieldType(catalogue::Type type);

enum class SortDirection { ascending, descending };
enum class NarrowMode { part, whole };

struct GridField {
    std::string name;
    FieldType type = FieldType::text;
    bool isCode = false; // compares by the column's own rule
};

// The source with an order at its end. One that has an order already becomes a statement that the engine
// refuses: deliberate, see GridSort.
RecordSource sortedSource(const RecordSource& source, const GridField& field, SortDirection direction);
// The table narrowed by an answer that is not blank; nullopt where the type and mode leave the source as it
// is. Fault typeMismatch for no number, overflow for one that the type does not hold.
std::optional<RecordSource> narrowedSource(const std::string& table, const GridField& field, NarrowMode mode,
                                           const QString& answer);

// The statement that gives the row numbers of a source in its order: stored order where it says none.
std::string rowNumberStatement(const RecordSource& source);

} // namespace vandrel
