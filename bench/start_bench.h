// From the start of the process to its first painted window, beside an empty Qt window.
#pragma once

#include "measure.h"

#include <QString>

namespace vandrel::bench {

void measureStart(Table& table, const QString& clinic, const QString& size, int rounds);

} // namespace vandrel::bench
