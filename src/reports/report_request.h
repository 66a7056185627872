// What a report is asked for. Knows no window.
#pragma once

#include <QString>

namespace vandrel {

using namespace Qt::StringLiterals;

// As the texts stand on the screen. Mode "0" original report, "1" corrected report, "E" EU report; the
// periods are mask texts "éééé.hh", unfilled "    .  ". settlement is looked at only in mode "1".
struct ReportRequest {
    QString mode = u"0"_s;
    QString from, to, settlement;
};

} // namespace vandrel
