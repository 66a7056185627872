// List 1: the patient traffic log by unit and category.
// Texts, tab stops and sums are the form that the clinic knows, oddities included.
#pragma once

#include "statistics/list_run.h"

namespace vandrel {

// Prints into a run whose sheets are chosen; faults of the data files pass through. Needs at least one sheet.
void BetForg_naplo_Nyom(ListRun& run);

} // namespace vandrel
