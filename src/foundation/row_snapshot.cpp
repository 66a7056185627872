#include "foundation/row_snapshot.h"

#include "foundation/dialect.h"

#include <algorithm>
#include <limits>

namespace vandrel {

namespace {
constexpr qint64 longestBitmap = qint64{1} << 26; // 8 MB
constexpr int highShift = 32;
} // namespace

void RowNumbers::add(qint64 rowid) {
    const auto bits = static_cast<quint64>(rowid);
    const auto high = static_cast<quint32>(bits >> highShift);
    if (high != 0 && m_high.empty()) m_high.resize(m_low.size(), 0);
    m_low.push_back(static_cast<quint32>(bits));
    if (high != 0 || !m_high.empty()) m_high.push_back(high);
}

void RowNumbers::shrink() {
    m_low.shrink_to_fit();
    m_high.shrink_to_fit();
}

qint64 RowNumbers::at(qint64 position) const {
    const auto i = static_cast<std::size_t>(position);
    const quint64 high = m_high.empty() ? 0 : m_high[i];
    return static_cast<qint64>(high << highShift | m_low[i]);
}

RowSet::RowSet(std::vector<qint64> rowids) : m_sorted(std::move(rowids)) {
    std::ranges::sort(m_sorted);
    if (m_sorted.empty()) return;
    const quint64 span = static_cast<quint64>(m_sorted.back()) - static_cast<quint64>(m_sorted.front());
    if (span >= static_cast<quint64>(longestBitmap)) return;
    m_bits.resize(static_cast<std::size_t>(span) + 1);
    for (const qint64 rowid : m_sorted)
        m_bits[static_cast<std::size_t>(rowid - m_sorted.front())] = true;
}

bool RowSet::contains(qint64 rowid) const {
    if (m_sorted.empty() || rowid < m_sorted.front() || rowid > m_sorted.back()) return false;
    if (!m_bits.empty()) return m_bits[static_cast<std::size_t>(rowid - m_sorted.front())];
    return std::ranges::binary_search(m_sorted, rowid);
}

RowSnapshot::RowSnapshot(Database& database, const RecordSource& source) {
    Query rows = database.query(rowNumberStatement(source));
    bindValues(rows, source.values);
    while (rows.next())
        m_rows.add(rows.integer(0));
    m_rows.shrink();
    if (count() > 0) m_position = 0;
}

void RowSnapshot::goTo(qint64 position) {
    if (position >= 0 && position < count()) m_position = position;
}

bool RowSnapshot::next() {
    if (m_position + 1 >= count()) return false;
    ++m_position;
    return true;
}

bool RowSnapshot::previous() {
    if (m_position <= 0) return false;
    --m_position;
    return true;
}

qint64 RowSnapshot::findForward(const RowSet& matches, qint64 from) const {
    if (matches.isEmpty()) return -1;
    for (qint64 i = std::max<qint64>(from, 0); i < count(); ++i)
        if (matches.contains(m_rows.at(i))) return i;
    return -1;
}

qint64 RowSnapshot::findBackward(const RowSet& matches, qint64 from) const {
    if (matches.isEmpty()) return -1;
    for (qint64 i = std::min(from, count() - 1); i >= 0; --i)
        if (matches.contains(m_rows.at(i))) return i;
    return -1;
}

void bindValues(Query& query, const std::vector<RecordSource::Value>& values) {
    int parameter = 0;
    for (const RecordSource::Value& value : values) {
        ++parameter;
        std::visit([&](const auto& plain) { query.bind(parameter, plain); }, value);
    }
}

RowSet matchingRows(Database& database, const std::string& table, const std::string& condition,
                    const std::vector<RecordSource::Value>& values) {
    Query rows = database.query(dialect("select rowid from " + table + " where " + condition));
    bindValues(rows, values);
    std::vector<qint64> found;
    while (rows.next())
        found.push_back(rows.integer(0));
    return RowSet(std::move(found));
}

} // namespace vandrel
