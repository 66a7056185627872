// Where the report files go: the target is a folder's text with its closing separator, and a file on it is
// the text directly followed by the name. Knows no window.
#pragma once

#include "foundation/workstation.h"

#include <QString>
#include <QStringList>

namespace vandrel {

// "a:\" and the like: a drive letter, which on a machine without drives is a target that is never ready, not
// the name of a file in the working folder.
bool isDriveText(const QString& text);

// The target's text: the report target, or the working folder with a closing separator where it is blank.
QString targetText(const Workstation& station);

// The target's text directly followed by name. Faults: diskNotReady for a drive text, pathNotFound where the
// target's folder is not there.
QString targetFile(const Workstation& station, const QString& name);

// Opens "id.txt" on the target for output and closes it; it stays behind, empty. A folder that is not there
// is fault diskNotReady; other faults as CodePageFile::open.
void testTarget(const Workstation& station);

// A chosen folder without its closing separator (the root keeps its own), and with exactly one.
QString withoutClosingSeparator(const QString& folder);
QString withClosingSeparator(const QString& folder);

// What openform tells its caller's panels about the volume that holds a path.
struct VolumeTexts {
    QString drive; // "Meghajtó: ", the drive and " - "
    QString total; // "Teljes lemezterület: ", kB and " kb "
    QString free;  // "Szabad lemezterület: ", kB and " kb "
};
VolumeTexts volumeTexts(const QString& path);

// The mounted volumes that are ready, as their root folders: what a drive list shows.
QStringList readyVolumes();

} // namespace vandrel
