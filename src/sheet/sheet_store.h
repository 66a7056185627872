// The store of a sheet: the checks, then the steps before, inside and after the transaction, then the
// counters. Rooms that write with a sheet offer a step (Workstation::storeSteps); this one does not know
// them.
#pragma once

#include "foundation/workstation.h"
#include "platform/fault.h"
#include "sheet/sheet_record.h"

namespace vandrel {

// A fault that lies in what one field holds.
class FieldFault : public Fault {
  public:
    FieldFault(int number, const QString& text, const QString& field) : Fault(number, text), m_field(field) {}
    const QString& field() const { return m_field; } // its name

  private:
    QString m_field;
};

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

// Checks and writes. What is written inside is one transaction: a fault leaves the sheet wholly unstored and
// is raised. The counters move after that, for new sheets only. Of two programs that store new sheets under
// one key, the later one gets fault dataConversion with nothing written. FieldFault names the field of a
// number that cannot be read.
StoreResult storeSheet(Workstation& station, const SheetRecord& record);

} // namespace vandrel
