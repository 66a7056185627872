// The running numbers of the sheets: the key of the next one, and what a stored sheet moves. But for the
// repair at start, internal to the sheet's rules.
#pragma once

#include "foundation/workstation.h"

#include <QString>

namespace vandrel {

// The running number after the last key, seven digits: characters 4 to 10 of the last key plus 1. Faults:
// overflow after 9999999, typeMismatch when those characters are no number.
QString nextRunningNumber(Workstation& station);

// True when a sheet is stored under the key.
bool sheetStored(Workstation& station, const QString& key);

// A journal number as the counters keep it: rounded to a whole number of 32 bits. Faults typeMismatch and
// overflow.
qint64 journalNumber(const QString& journal);

// Writes the key into AZONOSIT and the unit's last doctor and journal number into DEFAULT, inside the
// caller's transaction. A blank doctor leaves the one that is there; a
// sick-pay journal number is written only with a new row of the unit.
void advanceCounters(Workstation& station, const QString& key, const QString& unit, const QString& doctor,
                     qint64 journal, qint64 sickPayJournal);

// A store that was broken off between writing the sheet and moving the counters (a power cut) leaves END_AZON
// before its own last sheet: moves the counters past it, so that no key is given twice. Runs at start and
// before each new sheet.
void repairCounters(Workstation& station);

} // namespace vandrel
