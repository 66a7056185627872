// What the user asked for on the statistics screen, and how a list ended.
#pragma once

#include <QString>
#include <QStringList>

namespace vandrel {

using namespace Qt::StringLiterals;

// The eight lists by their numbers in the menu.
enum class StatisticsList {
    trafficLog = 1,
    unitPerformance = 2,
    referrersMonthly = 3,
    proceduresDone = 4,
    referrersItemised = 5,
    individualCosts = 6,
    combined = 7,
    visitFees = 8
};

// The texts of the three panels' fields; each list reads its own.
struct ListRequest {
    bool allCategories = false; // lists 1 and 5
    QStringList categories{};   // ticked fee categories in their order; lists 1 and 5
    QString category{};         // lists 3 and 4
    QString from{};             // éééé.hh.nn. (lists 1 and 5) or éééé.hh
    QString to{};
    QString fromCode{}; // first unit (lists 1, 4 and 5) or referrer (list 3)
    QString toCode{};
    QString code{};        // TAJ (list 6) or unit (lists 7 and 8)
    bool allUnits = false; // list 8: whatever the code is
};

enum class ListOutcome {
    ready,   // the document is complete
    noData,  // the user has been told; no document
    stopped, // the user broke it off; no document
    failed   // a fault, and the user has been told; no document
};

// The texts of the status line. A run tells the first two itself; the others belong to the caller: one before
// the preview opens, one when it is closed.
namespace list_status {
inline const QString processing = u"Feldolgozás..."_s;
inline const QString waiting = u"Várakozás: az adatállományt más program használja..."_s;
inline const QString makingPreview = u"Nyomtatási kép létrehozása..."_s;
inline const QString ready = u"Lista kész!"_s;
} // namespace list_status

} // namespace vandrel
