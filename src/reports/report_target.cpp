#include "reports/report_target.h"

#include "platform/code_page.h"

#include <QDir>
#include <QFileInfo>
#include <QStorageInfo>

namespace vandrel {

namespace {

constexpr qint64 kilobyte = 1024;

[[noreturn]] void raiseNotReady(const QString& target) {
    throw Fault(fault::diskNotReady, QStringLiteral("A meghajtó nem áll készen: %1").arg(target));
}

bool hasDrives() {
    return QDir::separator() == QLatin1Char('\\');
}

} // namespace

bool isDriveText(const QString& text) {
    return text.size() >= 2 && text[1] == QLatin1Char(':') && text[0].isLetter() && text[0].unicode() < 128;
}

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
        throw Fault(fault::pathNotFound, QStringLiteral("Az útvonal nem található: %1").arg(target));
    return path;
}

void testTarget(const Workstation& station) {
    try {
        makeEmptyFile(targetFile(station, QStringLiteral("id.txt")));
    } catch (const Fault& fault) {
        // A folder that is gone is a floppy that is not in the drive.
        if (fault.number() == fault::pathNotFound) raiseNotReady(targetText(station));
        throw;
    }
}

QString withoutClosingSeparator(const QString& folder) {
    QString result = folder;
    const auto closes = [](QChar c) { return c == QDir::separator() || c == QLatin1Char('/'); };
    while (result.size() > 1 && closes(result.back()))
        result.chop(1);
    return result;
}

QString withClosingSeparator(const QString& folder) {
    const QString bare = withoutClosingSeparator(folder);
    return bare.endsWith(QDir::separator()) ? bare : bare + QDir::separator();
}

VolumeTexts volumeTexts(const QString& path) {
    const QStorageInfo volume(path);
    // Where there are no drive letters the volume's own folder stands in the letter's place.
    const QString root = volume.isValid() ? volume.rootPath() : QString();
    const QString drive = isDriveText(root) ? root.left(1).toUpper() : QDir::toNativeSeparators(root);
    const auto kilobytes = [](qint64 bytes) { return QString::number(bytes > 0 ? bytes / kilobyte : 0); };
    return {QStringLiteral("Meghajtó: ") + drive + QStringLiteral(" - "),
            QStringLiteral("Teljes lemezterület: ") + kilobytes(volume.bytesTotal()) + QStringLiteral(" kb "),
            QStringLiteral("Szabad lemezterület: ") + kilobytes(volume.bytesAvailable()) +
                QStringLiteral(" kb ")};
}

QStringList readyVolumes() {
    QStringList roots;
    for (const QStorageInfo& volume : QStorageInfo::mountedVolumes()) {
        // The machine's own pseudo volumes (no capacity) and single mounted files are no place for a report.
        if (!volume.isValid() || !volume.isReady() || volume.bytesTotal() <= 0 ||
            !QFileInfo(volume.rootPath()).isDir())
            continue;
        if (!roots.contains(volume.rootPath())) roots << volume.rootPath();
    }
    if (roots.isEmpty()) roots << QDir::rootPath();
    roots.sort();
    return roots;
}

} // namespace vandrel
