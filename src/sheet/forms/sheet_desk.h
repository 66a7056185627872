// What the frames of the sheet's screen share: the inputs of the sheet's field table and the switches that
// the rules ask for. It knows no frame and no layout.
#pragma once

#include "foundation/forms/field_set.h"
#include "sheet/sheet_field_table.h"

namespace vandrel {

class SheetDesk : public FieldSet<SheetKey> {
  public:
    SheetDesk(Workstation& station, QWidget* form);

    bool altEng = true;      // the general enabling switch: chooses the group of field checks
    bool correction = false; // mode "Javítás"
};

} // namespace vandrel
