// What a report run came to. Knows no window.
#pragma once

#include <QString>

namespace vandrel {

struct ReportOutcome {
    enum class Result {
        refused,    // a period is not filled in; the focus goes to the from-field
        notBuilt,   // the mode's writer does not exist yet: nothing was selected or marked
        notStarted, // the target is not ready; nothing was touched
        broken,     // the selection broke; the marks set so far stay
        noData,     // nothing is due in the period
        writerEnded // the writer ran; complete says whether it came to its end
    };
    Result result = Result::refused;
    bool complete = false;
    qint64 sheets = 0;     // selected
    qint64 records = 0;    // rows of the scratch table
    qint64 procedures = 0; // non-blank procedure positions
    QString reportFile;    // path of the report file; empty before the writer has opened it
};

} // namespace vandrel
