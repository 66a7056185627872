// List 5: sheet by sheet under each referrer and category, with every procedure.
// Texts, tab stops and sums are the form that the clinic knows, oddities included.
#pragma once

#include "statistics/list_run.h"

namespace vandrel {

// Prints into a run whose sheets are chosen; faults of the data files pass through. Needs at least one sheet.
void Bekuldok_vandrel_nyom(ListRun& run);

} // namespace vandrel
