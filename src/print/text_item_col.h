// The ordered, keyed collection of a document's items. Counts from 1; keys compare without regard to case.
#pragma once

#include "print/text_item.h"

#include <QHash>

#include <deque>
#include <variant>

namespace vandrel {

class qcTextItemCol {
  public:
    // An item's place, from 1, or its key.
    using IndexOrKey = std::variant<int, QString>;

    // Appends; an empty key adds without one. Fault 457 for a key that is there already. The reference holds
    // until an item is removed.
    qcTextItem& Add(qcTextItem item, const QString& key = {});
    // Fault subscript for an index, invalidCall for a key that is not there.
    qcTextItem& Item(const IndexOrKey& which);
    const qcTextItem& Item(const IndexOrKey& which) const;
    int Count() const { return static_cast<int>(m_items.size()); }
    void Remove(const IndexOrKey& which);

    // NewEnum: the items in their order.
    auto begin() { return m_items.begin(); }
    auto end() { return m_items.end(); }
    auto begin() const { return m_items.begin(); }
    auto end() const { return m_items.end(); }

  private:
    std::size_t place(const IndexOrKey& which) const;

    std::deque<qcTextItem> m_items;
    QHash<QString, std::size_t> m_places; // by folded key
};

} // namespace vandrel
