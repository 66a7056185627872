// What the two lists of the traffic-log panel share: their opening, the patient of a sheet and its lines.
#pragma once

#include "statistics/list_run.h"

#include <optional>
#include <vector>

namespace vandrel {

// The rule under the heads reaches to the last column at this size.
inline constexpr float logRuleSize = 12;

void logHead(ListRun& run, const QString& title);
void categoryLine(ListRun& run, const QString& category);

// A patient as the lists print one; empty texts where the register has none.
struct PatientColumns {
    QString taj, name, type, sex, birth;
    bool found = false;
};
PatientColumns patientById(ListRun& run, std::optional<qint64> id);
PatientColumns patientByTaj(ListRun& run, const QString& taj);

struct LineColumns {
    QString code;
    double quantity;
};
// In the order of their codes.
std::vector<LineColumns> linesOf(ListRun& run, const QString& sheetKey);

} // namespace vandrel
