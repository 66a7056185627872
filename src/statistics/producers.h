// The eight lists. Each prints what is its own into a run whose sheets are already chosen; the skeleton has
// told of missing data before. Texts, tab stops, sums and their oddities are laid down: none of it is free to
// be mended.
#pragma once

#include "statistics/list_run.h"

namespace vandrel {

void BetForg_naplo_Nyom(ListRun& run);    // 1, needs sheets
void Rend_teljesites_nyom(ListRun& run);  // 2
void Bekuldok_havi_nyom(ListRun& run);    // 3
void Elvegz_beav_nyom(ListRun& run);      // 4
void Bekuldok_vandrel_nyom(ListRun& run); // 5, needs sheets
void Egyeni_koltseg_nyom(ListRun& run);   // 6, needs sheets
void Ossz_lista_nyom(ListRun& run);       // 7
void VizDijStat_Nyom(ListRun& run);       // 8

} // namespace vandrel
