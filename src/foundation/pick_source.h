// The lines of a pick-list, whether they come from a code list or from a table.
#pragma once

#include "foundation/code_lists.h"
#include "foundation/workstation.h"

#include <QString>

#include <memory>

namespace vandrel {

// Lines of a table-bound pick-list, fetched row by row so that a register of any size opens at once.
class PickSource {
  public:
    virtual ~PickSource() = default;
    virtual int count() const = 0;
    virtual QString line(int row) = 0; // row from 0, in the table's order
    // The first row that begins with the text; -1 when there is none. Of a table's line it is the code that
    // is searched.
    virtual int rowBeginningWith(const QString& text) = 0;
};
// Source of markers 7, 8 and 18 (tables) and of all lists. Faults of the data file pass through.
std::unique_ptr<PickSource> openPickSource(Workstation& station, PickMarker marker);

} // namespace vandrel
