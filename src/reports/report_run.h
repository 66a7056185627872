// One run of the monthly report: the checks, the target test, the selection with its marks, and the writer.
// Knows no window: boxes go to the workstation's dialogue, the display goes to a port.
#pragma once

#include "foundation/workstation.h"

#include <QString>

namespace vandrel {

using namespace Qt::StringLiterals;

// What stands on the screen. Mode "0" original report, "1" corrected report, "E" EU report; the periods are
// mask texts "éééé.hh", unfilled "    .  ". settlement is looked at only in mode "1".
struct ReportRequest {
    QString mode = u"0"_s;
    QString from, to, settlement;
};

// The display of a run. Called at most every twentieth of a second and at the last record, never once a
// record. Every function may be left as it is.
class ReportProgress {
  public:
    virtual ~ReportProgress() = default;
    // The fields of the period are closed from here on; the run is at work.
    virtual void started() {}
    // Nothing is due; called before the box says so.
    virtual void noData() {}
    virtual void selectedSheets(qint64 /*sheets*/) {}
    // Rows of the scratch table when writing begins.
    virtual void outputRecords(qint64 /*records*/) {}
    virtual void procedures(qint64 /*positions*/) {}
    // stage "Előkészítés: " or "Kiírás: ", position from 1 to total.
    virtual void moved(const QString& /*stage*/, qint64 /*position*/, qint64 /*total*/) {}
    // Asked only while a locked file is being waited for: true ends the run with fault 70.
    virtual bool givesUpWaiting() { return false; }
};

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
    QString reportFile;    // path of the ".amb" file; empty before the writer has opened it
};

// Runs it all, boxes included; raises no Fault. The report file lies in station.folder, the rest on
// station.reportTarget. station.serveEvents gets a turn about every 20 ms. The archiver is started and not
// waited for (station.packer.waitForFinished() does that).
ReportOutcome runReport(Workstation& station, const ReportRequest& request, ReportProgress& progress);

} // namespace vandrel
