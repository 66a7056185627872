#include "foundation/forms/masked_field.h"

namespace vandrel {

namespace {

const char* maskText(MaskedField::Mask mask) {
    switch (mask) {
    case MaskedField::Mask::date:
        return "0000.00.00.; ";
    case MaskedField::Mask::time:
        return "00:00; ";
    case MaskedField::Mask::period:
        return "0000.00; ";
    case MaskedField::Mask::account:
        return "00000000-00000000-00000000; ";
    case MaskedField::Mask::taxNumber:
        return "00000000-0-00; ";
    }
    return "";
}

} // namespace

MaskedField::MaskedField(Mask mask, QWidget* parent) : QLineEdit(parent) {
    setInputMask(QString::fromLatin1(maskText(mask)));
    clear();
    m_empty = displayText();
}

} // namespace vandrel
