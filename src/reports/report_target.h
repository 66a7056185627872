// Where the report files go: the target is a folder's text with its closing separator, and a file on it is
// the text directly followed by the name. Knows no window.
#pragma once

#include "foundation/volumes.h"
#include "foundation/workstation.h"

#include <QString>

namespace vandrel {

// The target's text: the report target, or the working folder with a closing separator where it is blank.
QString targetText(const Workstation& station);

// The target's text directly followed by name. Faults: diskNotReady for a drive text, pathNotFound where the
// target's folder is not there.
QString targetFile(const Workstation& station, const QString& name);

// Opens "id.txt" on the target for output and closes it; it stays behind, empty. A folder that is not there
// is fault diskNotReady; other faults as CodePageFile::open.
void testTarget(const Workstation& station);

} // namespace vandrel
