#include "sheet/forms/sheet_desk.h"

#include "foundation/field_checks.h"

namespace vandrel {

SheetDesk::SheetDesk(Workstation& workstation, QWidget* form)
    : FieldSet(workstation, form, sheetFieldTable()) {
    check = [this](const FieldDescription&, QLineEdit* input) {
        const QString text = textOf(input);
        const FieldVerdict verdict = checkField(station, input->objectName(), text, altEng, !correction);
        if (verdict.value != text) setTextOf(input, verdict.value);
        if (verdict.failure) tell(station.dialogue, *verdict.failure);
        return !verdict.failure;
    };
}

} // namespace vandrel
