// Data as they are, for the texts of items, where "<" begins a tag.
#pragma once

#include <QString>

namespace vandrel {

// A text that prints as the data read. The mark-up has no escape, but a tag candidate of two letters that is
// none leaves its "<" an ordinary character: so a tag of one letter is put after each "<", and its end tag
// after that. The tag is underline, so not for an item that is underlined itself.
QString literalText(const QString& data);

} // namespace vandrel
