// The fields of the sheet's screen, declared once: name, label, shape, limit, list. Their order is the order
// of entry. It knows no widget.
#pragma once

#include "foundation/code_lists.h"

#include <QStringView>

#include <span>

namespace vandrel {

enum class FieldShape { text, date, time };
// Where a field stands in the order of Enter, Down and Up.
enum class FieldPlace {
    main,  // the chain of the sheet
    other, // the chain of the other-data frame
    aside  // in neither: reached by Tab and mouse
};
enum class FieldDate { none, birth, referral, care, exemptionExpiry, unchecked };

inline constexpr int noLimit = 32767;

struct SheetField {
    const char* name;
    QStringView label;
    FieldPlace place = FieldPlace::main;
    int limit = noLimit; // characters that may be typed
    int shown = 0;       // characters the field is wide; 0: as wide as there is room
    FieldShape shape = FieldShape::text;
    bool numeric = false;
    bool zeroWhenEmpty = false;
    PickMarker list = PickMarker::none; // opened by F1
    FieldDate date = FieldDate::none;
};

std::span<const SheetField> sheetFieldTable();
// Null for a name that is no field of the screen.
const SheetField* sheetField(QStringView name);

} // namespace vandrel
