// Writes what the machine still keeps in memory of a file to the disk.
#pragma once

#include <QString>

namespace vandrel {

// The file and its entry in its folder survive a power cut when this comes back. Faults: fileNotFound,
// pathAccess, diskFull, deviceError. What is no file of a disk (a device) is left alone.
void syncFile(const QString& path);

} // namespace vandrel
