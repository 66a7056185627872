// Lists 2, 3 and 4: the monthly head alone, the summary by referrer, and the summed procedures by unit.
// Texts, tab stops and sums are the form that the clinic knows, oddities included.
#pragma once

#include "statistics/list_run.h"

namespace vandrel {

// Prints into a run whose sheets are chosen; faults of the data files pass through.
void Rend_teljesites_nyom(ListRun& run); // 2: reads no data
void Bekuldok_havi_nyom(ListRun& run);   // 3
void Elvegz_beav_nyom(ListRun& run);     // 4

} // namespace vandrel
