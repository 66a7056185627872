// The clerk's single steps beside their floors: a new sheet, a key stroke in the TAJ field and in the list of
// diagnoses, a store.
#pragma once

#include "measure.h"

#include <QString>

namespace vandrel::bench {

// Works on a copy of the clinic's folder. Needs the counter of synced writes installed and a QApplication.
void measureEntry(Table& table, const QString& clinic, const QString& size, const QString& copyFolder,
                  int rounds);

} // namespace vandrel::bench
