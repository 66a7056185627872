// The twenty checks that a sheet must pass before it is stored. They look and write nothing.
#pragma once

#include "foundation/checks.h"
#include "foundation/workstation.h"
#include "sheet/sheet_record.h"

#include <optional>

namespace vandrel {

// The first check that fails, in the checks' order; nullopt when the sheet may be stored. Faults of the data
// file pass through.
std::optional<CheckFailure> checkSheet(Workstation& station, const SheetRecord& record);

} // namespace vandrel
