// What a list is made of: the checks that stand before it and the sheets it walks, in their order. Knows no
// window and no document.
#pragma once

#include "foundation/workstation.h"
#include "statistics/list_request.h"

#include <QString>

#include <array>
#include <optional>
#include <vector>

namespace vandrel {

// --- the fee-category check boxes of the traffic-log panel -------------------------------------------------

struct FeeCategoryBox {
    QString caption;
    QString value; // of TERITES
};
inline constexpr int feeCategoryCount = 11;
// In the order of the screen. "Összes térítési kategória" stands for these eleven; other categories are in no
// list of the panel, and that is wanted.
const std::array<FeeCategoryBox, feeCategoryCount>& feeCategoryBoxes();
// Whether any of the boxes with index from..to (from 0, ends included) is ticked.
bool ter_ell(const ListRequest& request, int from, int to);

// --- checks ------------------------------------------------------------------------------------------------

enum class ListField { categories, from, to, fromCode, toCode, code };

// What a check found: the box to show (always critical) and the field that gets the focus.
struct ListComplaint {
    QString message;
    QString title;
    ListField field;
};

// "Tovább": at least one category, or all of them.
std::optional<ListComplaint> checkCategories(const ListRequest& request);
// On leaving the to-date of the traffic-log panel: from may not be later than to. Compared as texts.
std::optional<ListComplaint> checkPeriodOrder(const ListRequest& request);
// "Feldolgozás" of the panel that the list stands on, the first that fails. A date field is unfilled when it
// holds its empty mask or nothing.
std::optional<ListComplaint> checkRequest(StatisticsList list, const ListRequest& request);

// --- selection ---------------------------------------------------------------------------------------------

// The rowids in BETEG of the sheets of a list, in the list's order; none for list 2, which reads no data.
// Eight bytes a sheet, and no statement stays open: the caller reads each row by its rowid, and a sheet that
// is gone by then is left out. Faults of the data file pass through.
std::vector<qint64> selectSheets(Workstation& station, StatisticsList list, const ListRequest& request);

} // namespace vandrel
