// The row numbers of a table or query in order, with a current position: what stands in for a record set.
// Only numbers are kept (4 bytes a row as a rule); rows are read by whoever looks at them.
#pragma once

#include "foundation/record_source.h"
#include "platform/database.h"

#include <vector>

namespace vandrel {

// Row numbers in the order of a question.
class RowNumbers {
  public:
    void add(qint64 rowid);
    void shrink();
    qint64 count() const { return static_cast<qint64>(m_low.size()); }
    qint64 at(qint64 position) const;

  private:
    std::vector<quint32> m_low;
    std::vector<quint32> m_high; // empty while every number fits 32 bits
};

// A set of row numbers: the matches of a criterion.
class RowSet {
  public:
    explicit RowSet(std::vector<qint64> rowids);
    bool isEmpty() const { return m_sorted.empty(); }
    bool contains(qint64 rowid) const;

  private:
    std::vector<qint64> m_sorted;
    std::vector<bool> m_bits; // from the smallest on; empty where the numbers lie too far apart
};

class RowSnapshot {
  public:
    RowSnapshot() = default;
    // Faults of the engine pass through, also for a statement that it refuses.
    RowSnapshot(Database& database, const RecordSource& source);

    qint64 count() const { return m_rows.count(); }
    qint64 rowid(qint64 position) const { return m_rows.at(position); }

    // The current position, from 0; -1 only where there is no row. The first row is current at the beginning.
    qint64 position() const { return m_position; }
    void goTo(qint64 position); // outside: stays
    void first() { goTo(0); }
    void last() { goTo(count() - 1); }
    bool next();     // false at the end: stays
    bool previous(); // false at the beginning: stays

    // The position of a match in this order; -1 when there is none. from is looked at too.
    qint64 findForward(const RowSet& matches, qint64 from) const;
    qint64 findBackward(const RowSet& matches, qint64 from) const;

  private:
    RowNumbers m_rows;
    qint64 m_position = -1;
};

// Binds a source's values as ?1, ?2 ...
void bindValues(Query& query, const std::vector<RecordSource::Value>& values);
// The rows of a table that a condition in the system's SQL fits. Faults of the engine pass through.
RowSet matchingRows(Database& database, const std::string& table, const std::string& condition,
                    const std::vector<RecordSource::Value>& values);

} // namespace vandrel
