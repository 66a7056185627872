// The store of a sheet: twenty checks in order, then the writing steps in order.
#pragma once

#include "foundation/workstation.h"
#include "sheet/sheet_fields.h"

namespace vandrel {

enum class StoreOutcome {
    refused,       // a check failed: its message was shown; field says where
    stored,        // correction mode: the form stays open, without a further message
    storedAnother, // new sheet, and the user wants another one
    storedDone     // new sheet, and the user does not
};
struct StoreResult {
    StoreOutcome outcome = StoreOutcome::refused;
    QString field;
};

// Checks and writes. The register, the sheet, the sick-pay and the EU record are one transaction: a fault
// leaves the sheet wholly unstored and is raised. The counters move after that, for new sheets only.
StoreResult storeSheet(Workstation& station, const SheetFields& fields);

} // namespace vandrel
