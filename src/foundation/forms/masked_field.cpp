#include "foundation/forms/masked_field.h"

#include <utility>

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

MaskedField::MaskedField(Mask mask, QWidget* parent) : QLineEdit(parent), m_mask(mask) {
    setInputMask(QString::fromLatin1(maskText(mask)));
    clear();
    m_empty = displayText();
}

void MaskedField::padSingleDigits() {
    static constexpr std::pair<Mask, int> places[] = {
        {Mask::date, 5}, {Mask::date, 8}, {Mask::period, 5}, {Mask::time, 0}};
    QString padded = value();
    for (const auto& [mask, place] : places) {
        if (mask != m_mask) continue;
        const QString digit = padded.mid(place, 2).trimmed();
        if (digit.size() == 1) padded.replace(place, 2, u'0' + digit);
    }
    if (padded != value()) setValue(padded);
}

} // namespace vandrel
