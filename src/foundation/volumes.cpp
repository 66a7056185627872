#include "foundation/volumes.h"

#include <QDir>
#include <QFileInfo>
#include <QStorageInfo>

using namespace Qt::StringLiterals;

namespace vandrel {

namespace {
constexpr qint64 kilobyte = 1024;
} // namespace

bool hasDrives() {
    return QDir::separator() == '\\'_L1;
}

bool isDriveText(const QString& text) {
    return text.size() >= 2 && text[1] == ':'_L1 && text[0].isLetter() && text[0].unicode() < 128;
}

QString withoutClosingSeparator(const QString& folder) {
    QString result = folder;
    const auto closes = [](QChar c) { return c == QDir::separator() || c == '/'_L1; };
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
    return {u"Meghajtó: "_s + drive + u" - "_s,
            u"Teljes lemezterület: "_s + kilobytes(volume.bytesTotal()) + u" kb "_s,
            u"Szabad lemezterület: "_s + kilobytes(volume.bytesAvailable()) + u" kb "_s};
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
