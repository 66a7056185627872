// Folders and volumes as the screens show them: closing separators, drive texts, room on a volume.
#pragma once

#include <QString>
#include <QStringList>

namespace vandrel {

// "a:\\" and the like: a drive letter, which on a machine without drives is a place that is never ready, not
// the name of a file in the working folder.
bool isDriveText(const QString& text);
// True on a machine whose volumes have drive letters.
bool hasDrives();

// A folder without its closing separator (the root keeps its own), and with exactly one.
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
