// Functions for SQL statements that compare and order texts as the program does: without regard to case,
// Hungarian letters included, and by the Hungarian alphabet. They are used in questions only, never in a data
// file's schema, so that any SQLite tool can still open the file.
#pragma once

#include <string>
#include <string_view>

struct sqlite3;

namespace vandrel {

// Registers on the connection (a Null argument gives Null):
//   hungarian_key(x)       bytes that order texts by the Hungarian alphabet; numbers as they are
//   same_text(x, y)        equal without regard to case
//   has_text(x, y)         y lies somewhere in x
//   begins_with(x, y)      x begins with y
//   text_matches(x, y)     y is a pattern: * any run, ? one character, # one digit
void registerTextFunctions(sqlite3* database);

// What hungarian_key gives: texts order as these bytes do. Letters first (cs, dz, dzs, gy, ly, ny, sz, ty, zs
// are letters, doubled ones too), then accents; case makes no difference.
std::string hungarianKey(std::string_view utf8);

} // namespace vandrel
