// What the month's report must be, byte for byte, worked out from what was typed and nothing else: the
// program's own writer, tables and formats are not used here.
#pragma once

#include <QByteArray>
#include <QHash>
#include <QString>

namespace vandrel::demo {

QByteArray expectedReport();
// The covering note; points of a procedure by its code.
QByteArray expectedNote(const QHash<QString, int>& points);

} // namespace vandrel::demo
