// The starter dictionaries of a fresh program folder: countries from the machine's country list, all else
// invented or generally known and marked "minta". Knows the catalogue's tables, but no window.
#pragma once

#include "foundation/data_files.h"

namespace vandrel {

// Fills the dictionaries of a program folder whose files are new and empty, names the workstation A01 and
// turns see-through windows off. The institution stays empty: the first start asks for it. Faults of the data
// files pass through.
void fillSampleData(DataFiles& files);

} // namespace vandrel
