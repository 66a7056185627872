#include "print/text_item_col.h"

#include "platform/fault.h"

using namespace Qt::StringLiterals;

namespace vandrel {

namespace {

constexpr int keyTaken = 457;

QString folded(const QString& key) {
    return key.toCaseFolded();
}

} // namespace

qcTextItem& qcTextItemCol::Add(qcTextItem item, const QString& key) {
    if (!key.isEmpty()) {
        if (m_places.contains(folded(key)))
            throw Fault(keyTaken, u"A(z) \"%1\" kulcs már szerepel a gyűjteményben!"_s.arg(key));
        m_places.insert(folded(key), m_items.size());
    }
    m_items.push_back(std::move(item));
    return m_items.back();
}

std::size_t qcTextItemCol::place(const IndexOrKey& which) const {
    if (const int* index = std::get_if<int>(&which)) {
        if (*index < 1 || *index > Count())
            throw Fault(fault::subscript, u"A gyűjteménynek nincs %1. eleme!"_s.arg(*index));
        return static_cast<std::size_t>(*index - 1);
    }
    const QString& key = std::get<QString>(which);
    const auto found = m_places.constFind(folded(key));
    if (found == m_places.constEnd())
        throw Fault(fault::invalidCall, u"A gyűjteménynek nincs \"%1\" kulcsú eleme!"_s.arg(key));
    return *found;
}

qcTextItem& qcTextItemCol::Item(const IndexOrKey& which) {
    return m_items[place(which)];
}
const qcTextItem& qcTextItemCol::Item(const IndexOrKey& which) const {
    return m_items[place(which)];
}

void qcTextItemCol::Remove(const IndexOrKey& which) {
    const std::size_t removed = place(which);
    m_items.erase(m_items.begin() + static_cast<std::ptrdiff_t>(removed));
    for (auto entry = m_places.begin(); entry != m_places.end();) {
        if (*entry == removed) {
            entry = m_places.erase(entry);
            continue;
        }
        if (*entry > removed) --*entry;
        ++entry;
    }
}

} // namespace vandrel
