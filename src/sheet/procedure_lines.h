// The procedure lines of a sheet. A line is written when it is added and gone when it is deleted, not at the
// store.
#pragma once

#include "foundation/workstation.h"

#include <vector>

namespace vandrel {

struct ProcedureLine {
    qint64 rowid = 0;
    QString BEAV, MENNY, BeavJelleg;
};

// The lines of a sheet in stored order.
std::vector<ProcedureLine> procedureLines(Workstation& station, const QString& sheetKey);

// Which field the focus goes to after adding.
enum class AddLineOutcome { added, quantityRefused, characterMissing, codeUnknown };
// Checks in order with their messages, then adds at the end. The quantity is a whole number of one or two
// digits ("1,5" can be typed, but is refused here). Faults of the data file pass through.
AddLineOutcome addProcedureLine(Workstation& station, const QString& sheetKey, const QString& code,
                                const QString& quantity, const QString& character);
// Asks first; true when the line was deleted. rowid below or equal 0: nothing is marked.
bool deleteProcedureLine(Workstation& station, qint64 rowid);

// Procedure code of a function key by its key code (113 for F2 ... 120 for F9); empty when FUNKCIO has no row
// for it.
QString getFunkcBeavKod(Workstation& station, int keyCode);
// Name of the first procedure whose code begins with the text; empty when none.
QString procedureNameByPrefix(Workstation& station, const QString& code);

} // namespace vandrel
