#include "reports/report_target.h"

#include "platform/code_page.h"

#include <QDir>
#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace vandrel {

namespace {

[[noreturn]] void raiseNotReady(const QString& target) {
    throw Fault(fault::diskNotReady, u"A meghajtó nem áll készen: %1"_s.arg(target));
}

} // namespace

QString targetText(const Workstation& station) {
    if (station.reportTarget.trimmed().isEmpty()) return withClosingSeparator(station.folder);
    return station.reportTarget;
}

QString targetFile(const Workstation& station, const QString& name) {
    const QString target = targetText(station);
    // On this system "a:\id.txt" would be a good name for a file in the working folder.
    if (isDriveText(target) && !hasDrives()) raiseNotReady(target);
    // A relative target counts from the working folder, whatever the process was started in.
    const QString path = QDir(station.folder).absoluteFilePath(target + name);
    if (!QFileInfo(QFileInfo(path).absolutePath()).isDir())
        throw Fault(fault::pathNotFound, u"Az útvonal nem található: %1"_s.arg(target));
    return path;
}

void testTarget(const Workstation& station) {
    try {
        makeEmptyFile(targetFile(station, u"id.txt"_s));
    } catch (const Fault& fault) {
        // A folder that is gone is a floppy that is not in the drive.
        if (fault.number() == fault::pathNotFound) raiseNotReady(targetText(station));
        throw;
    }
}

} // namespace vandrel
