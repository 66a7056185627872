// The searchable dictionaries behind the sheet's list of procedures, diagnoses and countries: a snapshot in
// memory, so that a search by name over a whole dictionary takes no noticeable time.
#pragma once

#include "foundation/workstation.h"

#include <vector>

namespace vandrel {

enum class Dictionary { procedures, diagnoses, countries };
enum class SearchBy { code, name };

class DictionaryList {
  public:
    struct Entry {
        QString code, name;             // Null is empty
        QString foldedCode, foldedName; // for comparing without regard to case
    };

    DictionaryList() = default;
    // All rows in the table's order. Faults of the data file pass through.
    DictionaryList(Workstation& station, Dictionary dictionary);

    int count() const { return static_cast<int>(m_entries.size()); }
    const Entry& at(int row) const { return m_entries[static_cast<std::size_t>(row)]; }
    // The first row from the given one on whose code begins with the text, or whose name has the text inside
    // (* any run, ? one character, # one digit); -1 when there is none.
    int find(SearchBy by, const QString& text, int from) const;

  private:
    std::vector<Entry> m_entries;
};

} // namespace vandrel
