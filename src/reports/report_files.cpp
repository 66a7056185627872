#include "reports/report_files.h"

#include "platform/code_page.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QThread>

using namespace Qt::StringLiterals;

namespace vandrel {

namespace {

// milliseconds
constexpr unsigned long retryPause = 10; // between two tries of a locked file
constexpr int packingPause = 20;         // between two turns of the event loop
constexpr int packingPatience = 60'000;

} // namespace

void ReportFiles::tellFault(const Fault& fault) {
    if (reactionTo(writerFaults, fault.number()) == Reaction::wrongPath)
        m_station.dialogue.tell(u"A megadott útvonal hibás!"_s);
    else
        m_station.dialogue.tell(u"Hiba történt az adatkiírás során!"_s + QString::number(fault.number()),
                                u"Hiba mentés közben"_s);
}

QString ReportFiles::workingFile(const QString& name) const {
    return m_station.folder + '/'_L1 + name;
}

void ReportFiles::requireFileName(const QString& code) {
    if (code.contains('/'_L1) || code.contains('\\'_L1))
        throw Fault(fault::pathNotFound, u"Az útvonal nem található: %1"_s.arg(code));
}

void ReportFiles::makeMarker(const QString& code) {
    makeEmptyFile(targetFile(m_station, QDir::separator() + code + u".id"_s));
}

void ReportFiles::copyToTarget(const QString& name, bool separated) {
    const QString from = workingFile(name);
    const QString to = targetFile(m_station, separated ? QDir::separator() + name : name);
    if (QFileInfo(from).canonicalFilePath() != QFileInfo(to).canonicalFilePath()) copyFileOver(from, to);
}

void ReportFiles::pack(const QString& archiveName, const QString& fileName) {
    const QString archive = targetFile(m_station, archiveName);
    // An archive of an earlier month must not pass for this one where the archiver fails.
    QFile::remove(archive);
    m_station.packer.start(m_station.folder, archive, fileName);
}

void ReportFiles::waitForPacking() {
    for (int waited = 0; waited < packingPatience && !m_station.packer.endsWithin(packingPause);
         waited += packingPause)
        m_turn.serve();
}

void ReportFiles::showNote(const QString& text, bool buttonEnabled) {
    if (m_station.statusNote == nullptr) return;
    m_station.statusNote->showNote(text, buttonEnabled);
    m_turn.serve();
}

bool ReportFiles::waitForLock() {
    QThread::msleep(retryPause);
    m_turn.serve();
    return !m_progress.givesUpWaiting();
}

} // namespace vandrel
