// What a list is made of: the checks before it and the sheets it walks, in their order. Knows no
// window and no document.
#pragma once

#include "foundation/checks.h"
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
// In the order of the screen. "Összes térítési kategória" means these eleven. Deliberate: other categories
// are in no list of the panel.
const std::array<FeeCategoryBox, feeCategoryCount>& feeCategoryBoxes();
// Whether any of the boxes with index from..to (from 0, ends included) is ticked.
bool ter_ell(const ListRequest& request, int from, int to);

// --- checks ------------------------------------------------------------------------------------------------

// The objectNames of the panels' fields that a failed check leads to.
namespace list_field {
inline constexpr const char* categories = "Terites01"; // the first of the boxes
inline constexpr const char* from = "IdoszakTol";
inline constexpr const char* to = "IdoszakIg";
inline constexpr const char* fromCode = "KodTol";
inline constexpr const char* toCode = "KodIg";
inline constexpr const char* code = "Kod";
} // namespace list_field

// "Tovább": at least one category, or all of them.
std::optional<CheckFailure> checkCategories(const ListRequest& request);
// On leaving the to-date of the traffic-log panel: from may not be later than to. Compared as texts.
std::optional<CheckFailure> checkPeriodOrder(const ListRequest& request);
// "Feldolgozás" of the panel that the list is on, the first that fails. A date field is unfilled when it
// holds its empty mask or nothing.
std::optional<CheckFailure> checkRequest(StatisticsList list, const ListRequest& request);

// --- selection ---------------------------------------------------------------------------------------------

// The rowids in BETEG of the sheets of a list, in the list's order; none for list 2, which reads no data.
// Eight bytes a sheet, and no statement stays open: the caller reads each row by its rowid, and a sheet that
// is gone by then is left out. Faults of the data file pass through.
std::vector<qint64> selectSheets(Workstation& station, StatisticsList list, const ListRequest& request);

} // namespace vandrel
