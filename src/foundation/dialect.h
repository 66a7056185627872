// The one place that turns the system's SQL into that of the storage engine. Knows no table.
#pragma once

#include <string>
#include <string_view>

namespace vandrel {

// left(x, n) and mid(x, i, n) become the engine's, the table DEFAULT gets its brackets, and
//   x like '*?1*'   the bound text lies in x; its own *, ?, % and _ are characters
//   x like '?1*'    x begins with the bound text
//   x like ?1       the bound text is a pattern: * any run, ? one character, # one digit
//   x = '?1'        the bound text is x, Hungarian letters without regard to case
//   x = ?1          as the column compares (codes without regard to case, by its index)
// % stands for * as well. What is no such construct stays as it is, wrong statements included: the engine
// tells what is wrong with them.
std::string dialect(std::string_view sql);

} // namespace vandrel
