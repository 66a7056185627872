// The print engine on the traffic log: building, paginating, writing the PDF and the preview's pages, beside
// bare painting of the same strings, a rich-text document of the same text, and a bare sum of widths; and the
// whole list from stored sheets beside a lean C program that reads the same rows.
#pragma once

#include "measure.h"

#include <QString>
#include <QStringList>

namespace vandrel::bench {

void measureLists(Table& table, const QString& workFolder, int rounds);
void measurePreview(Table& table, const QString& workFolder, int rounds);
// clinic: the program folder whose stored sheets are listed.
void measureStoredList(Table& table, const QString& clinic, const QString& workFolder, int rounds);

// The measured processes; each prints its figures. words: what to do, the sheets, the PDF to write.
int listChild(int argc, char** argv, const QStringList& words);

} // namespace vandrel::bench
