// The print engine on the traffic log: building, paginating, writing the PDF and the preview's pages, beside
// bare painting of the same strings, a rich-text document of the same text, and a bare sum of widths.
#pragma once

#include "measure.h"

#include <QString>
#include <QStringList>

namespace vandrel::bench {

void measureLists(Table& table, const QString& workFolder, int rounds);

// The measured processes; each prints its figures. words: what to do, the sheets, the PDF to write.
int listChild(int argc, char** argv, const QStringList& words);

} // namespace vandrel::bench
