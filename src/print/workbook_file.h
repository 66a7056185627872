// A document's table as a workbook (.xlsx) for the clinic's spreadsheet program: texts stay texts, so that
// the leading zeros of numbers and codes are kept. Knows no window.
#pragma once

#include "print/document_table.h"

namespace vandrel {

// Writes the whole file or nothing. Above the rows are the table's title and subtitle; a table of more rows
// than a sheet takes goes on on further sheets, heads again. A cell of more than 32,767 characters ends in
// "…". Faults: those of the file, and of the temporary folder that the workbook is made in.
void saveWorkbook(const DocumentTable& table, const QString& path);

} // namespace vandrel
