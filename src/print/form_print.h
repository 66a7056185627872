// A form's controls as the items of a document: an extension of the document class that no list or paper
// uses. Knows no widget: a form is given as its controls' places and texts.
#pragma once

#include <QString>

#include <vector>

namespace vandrel {

enum class ControlKind { text, optionButton, checkBox };

struct PrintableControl {
    ControlKind kind = ControlKind::text;
    QString name;
    QString text;
    bool checked = false;
    double left = 0; // in the form's scale
    double top = 0;
    double width = 0;
    double height = 0;
    QString fontName;
    float fontSize = 0; // points
    bool bold = false;
    bool italic = false;
};

struct PrintableForm {
    QString name;
    double scaleWidth = 0; // width of the form in its own scale
    std::vector<PrintableControl> controls;
};

namespace form_alignment {
inline constexpr long left = 0;
inline constexpr long centre = 1;
inline constexpr long right = 2;
inline constexpr long stretch = 3;
} // namespace form_alignment

// Faults of FormPrint_Update: above the number from which a component's own faults are counted.
namespace fault {
inline constexpr int objectError = -2147221504;
inline constexpr int formNotPrinted = objectError + 29998;
inline constexpr int otherForm = objectError + 29999;
} // namespace fault

} // namespace vandrel
