// What a report run came to. Knows no window.
#pragma once

#include <QString>

#include <string_view>

namespace vandrel {

struct ReportOutcome {
    enum class Result {
        refused,    // a period is not filled in; the focus goes to the from-field
        notBuilt,   // the mode's writer does not exist yet: nothing was selected or marked
        notStarted, // the target or a data file is not fit for it; nothing was touched
        broken,     // the selection broke; the marks set so far stay
        noData,     // nothing is due in the period
        writerEnded // the writer ran; complete says whether it came to its end
    };
    Result result = Result::refused;
    bool complete = false;
    qint64 sheets = 0;     // selected
    qint64 records = 0;    // rows of the scratch table
    qint64 procedures = 0; // non-blank procedure positions
    // Of the fault that ended the run, for the state line: the sheet's key and column where a record is to
    // blame. Empty when the run came to its end.
    QString detail;
    qint64 faultyRecord = 0;       // from 1; 0: no record is to blame
    std::string_view faultyColumn; // of the scratch table
    QString reportFile;            // path of the report file; empty before the writer has opened it
};

} // namespace vandrel
