// The display of a report run, as its steps see it. Knows no window.
#pragma once

#include <QString>

namespace vandrel {

// Called at most every tenth of a second and at the last record, never once a record. Every function may be
// left as it is.
class ReportProgress {
  public:
    virtual ~ReportProgress() = default;
    // The fields of the period are closed from here on; the run is at work.
    virtual void started() {}
    // Nothing is due; called before the box says so.
    virtual void noData() {}
    // A data file is read through for damage before the run, and it takes longer than a moment.
    virtual void checking(const QString& /*fileName*/) {}
    virtual void selectedSheets(qint64 /*sheets*/) {}
    // Rows of the scratch table when writing begins.
    virtual void outputRecords(qint64 /*records*/) {}
    virtual void procedures(qint64 /*positions*/) {}
    // stage "Előkészítés: " or "Kiírás: ", position from 1 to total.
    virtual void moved(const QString& /*stage*/, qint64 /*position*/, qint64 /*total*/) {}
    // Asked only while a locked file is being waited for: true ends the run with fault 70.
    virtual bool givesUpWaiting() { return false; }
};

} // namespace vandrel
