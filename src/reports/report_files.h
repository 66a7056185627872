// The files of a report: written in the working folder, copied or packed to the target, each statement under
// the writers' fault table. Knows no record and no window; the five report kinds write through it.
#pragma once

#include "foundation/workstation.h"
#include "platform/event_turn.h"
#include "platform/file_sync.h"
#include "reports/fault_reactions.h"
#include "reports/report_progress.h"
#include "reports/report_target.h"

namespace vandrel {

class ReportFiles {
  public:
    ReportFiles(Workstation& station, EventTurn& turn, ReportProgress& progress)
        : m_station(station), m_turn(turn), m_progress(progress) {}

    // Runs one statement under the fault table: skips it, tries it again, or raises its fault.
    template<class Statement>
    void statement(Statement&& work) {
        runStatement(
            writerFaults, [this] { return waitForLock(); }, std::forward<Statement>(work));
    }
    // The box that belongs to a fault which ended the run.
    void tellFault(const Fault& fault);

    // Path of a file in the working folder; name is a bare name.
    QString workingFile(const QString& name) const;
    // The institution's code is part of file names and must not lead out of their folders: fault
    // pathNotFound.
    static void requireFileName(const QString& code);

    // The empty file "<code>.id" on the target. Faults of targetFile and CodePageFile::open.
    void makeMarker(const QString& code);
    // Copies a file of the working folder to the target under its own name; nothing to do where the target is
    // the working folder. separated: a path separator between the target's text and the name. Faults of
    // targetFile and copyFileOver.
    void copyToTarget(const QString& name, bool separated);
    // Starts the archiver for a file of the working folder; the archive is put on the target, directly after
    // its text. An earlier archive of that name is removed first. Faults of targetFile.
    void pack(const QString& archiveName, const QString& fileName);

    // Waits until the archiver has ended, a minute at most; the event loop gets its turns.
    void waitForPacking();
    // The files are on the disk when this comes back; faults as syncFile.
    void syncWorkingFile(const QString& name) const { syncFile(workingFile(name)); }
    void syncOnTarget(const QString& name) const { syncFile(targetFile(m_station, name)); }

    // In the status note, where there is one; the event loop gets a turn.
    void showNote(const QString& text, bool buttonEnabled);

  private:
    bool waitForLock();

    Workstation& m_station;
    EventTurn& m_turn;
    ReportProgress& m_progress;
};

} // namespace vandrel
