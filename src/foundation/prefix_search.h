// The first row, in the table's order, whose column begins with a text: what a field does that searches while
// it is typed into. Knows no table by name.
#pragma once

#include "platform/database.h"

#include <QString>

#include <optional>
#include <string_view>

namespace vandrel {

// The rowid of that row; nullopt when there is none or the text is empty. Compared without regard to case.
// Table and column are names of the catalogue. Fast on any register where the column has its indexes
// (searched and typedAhead), right without them.
std::optional<qint64> firstRowStartingWith(Database& database, std::string_view table,
                                           std::string_view column, const QString& text);

} // namespace vandrel
