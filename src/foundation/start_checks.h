// What the program looks at when it starts and whenever its main window comes to the front. Asks the data
// files and the dialogue; knows no window.
#pragma once

#include "foundation/workstation.h"

#include <QStringList>

namespace vandrel {

// --- once, before the main window is shown -----------------------------------------------------------------

// Examines the data files that the daily work needs. Every fault found is told, naming its file. False: the
// program cannot run (a file, table or column is missing, or a file is damaged). A missing TAJKapu.mdb is
// told and the program goes on without it; the files of the merge, the drug lists, the conversion and the
// neighbouring system are looked at by the screens that use them.
bool examineDataFiles(Workstation& station);

// The database-format check: false, with the warning shown, when Tranzakciok of TAJKapu.mdb has no field
// named TAJ. A file that cannot be opened counts as good here.
bool VerzioEllenorzesek(Workstation& station);

// --- at every activation of the main window ----------------------------------------------------------------

// See-through windows, from the first record of EGYEBPAR: Null and an empty table are True. A fault is not
// shown and leaves the value that the workstation holds.
void readAttunes(Workstation& station);
// Writes Attunes = False into the first record of EGYEBPAR, after the see-through call has failed. A fault is
// not shown.
void clearAttunes(Workstation& station);

enum class InstitutionAnswer { filled, fillNow, fillLater };
// With no record in intezet: asks, and adds the warning that belongs to the answer. Faults pass through.
InstitutionAnswer checkInstitution(Workstation& station, QStringList& warnings);

// On the first start only: adds a warning for each of the doctors and the units that has no record, then
// clears the first-start flag. Faults pass through.
void checkFirstStart(Workstation& station, QStringList& warnings);

} // namespace vandrel
