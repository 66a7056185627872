// Lists 7 and 8: outpatient against inpatient quantities of one unit, and the visit fees taken.
// Texts, tab stops and sums are the form that the clinic knows, oddities included.
#pragma once

#include "statistics/list_run.h"

namespace vandrel {

// Prints into a run whose sheets are chosen; faults of the data files pass through.
void Ossz_lista_nyom(ListRun& run); // 7
void VizDijStat_Nyom(ListRun& run); // 8

} // namespace vandrel
