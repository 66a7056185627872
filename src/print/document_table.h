// The rows of a document as a table, kept beside its pages, so that the clinic's bookkeeper can open them: a
// CSV file with semicolons. Knows no window.
#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <vector>

namespace vandrel {

class DocumentTable {
  public:
    enum class Encoding { utf8, windows1250 }; // UTF-8 begins with its mark, so that spreadsheets know it

    void clear();
    // The first row of a table is its heads. Cells are plain texts: numbers with a decimal comma and without
    // grouping.
    void addRow(const QStringList& cells);
    qint64 rowCount() const { return m_rows; } // the heads included
    bool isEmpty() const { return m_rows == 0; }

    // Characters that the encoding does not have; they would be written as "?".
    qint64 unencodable(Encoding encoding) const;
    // Writes the whole file or nothing: an earlier file of the name stays until the new one is complete.
    // Lines end in CR LF; a cell with a semicolon, a quote or a line end is quoted. Faults of the
    // file.
    void save(const QString& path, Encoding encoding) const;

  private:
    void pack();
    // Calls take with the table's bytes, block by block; a block ends after a row.
    template<class Take>
    void eachBlock(Take take) const;

    // UTF-8. What is complete is kept compressed: a list of a hundred thousand sheets has tens of megabytes
    // that mostly nobody asks for.
    std::vector<QByteArray> m_packed;
    QByteArray m_csv;
    qint64 m_rows = 0;
};

} // namespace vandrel
