// List 6: what one patient's visits of a period were and what they cost, by unit and sheet.
// Texts, tab stops and sums are the form that the clinic knows, oddities included.
#pragma once

#include "statistics/list_run.h"

namespace vandrel {

// Prints into a run whose sheets are chosen; faults of the data files pass through. Needs at least one sheet.
void Egyeni_koltseg_nyom(ListRun& run);

} // namespace vandrel
