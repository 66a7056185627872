// The working table of lists 3 and 4: the procedure lines of the selected sheets, with what they are grouped
// by beside them.
#pragma once

#include "statistics/list_run.h"

namespace vandrel {

enum class ScratchKey { referrerAndUnit, unit };

// Empties EUSZOLG of tetseged.mdb and copies the lines of every sheet of the run into it, sheet by sheet, in
// one transaction: a list that is broken off leaves the table as it was. Gives the rowids of the copies in
// their order, which is the order of the sheets.
std::vector<qint64> copyLines(ListRun& run, ScratchKey key);

} // namespace vandrel
