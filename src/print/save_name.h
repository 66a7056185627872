// File names for saved documents. Knows no dialog.
#pragma once

#include <QString>

namespace vandrel {

// A name for a document's file, without a folder: its title with what no file system takes written as "_",
// not too long, and the ending ("pdf") after it. A title without a letter gives "dokumentum".
QString suggestedFileName(const QString& title, const QString& ending);
// The path with the ending after it, if it is not there already in any case of letters.
QString withEnding(const QString& path, const QString& ending);

} // namespace vandrel
