// The rows of a document as a table, kept beside its pages, so that the clinic's bookkeeper can open them: a
// CSV file with semicolons, or a workbook (print/workbook_file.h). Knows no window.
#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QString>
#include <QStringList>

#include <functional>
#include <vector>

namespace vandrel {

class DocumentTable {
  public:
    enum class Encoding { utf8, windows1250 }; // UTF-8 begins with its mark, so that spreadsheets know it
    using Row = std::vector<QByteArrayView>;   // cells in UTF-8, valid during the call

    void clear();
    // What a workbook has above the table; a CSV file has no place for it.
    void setCaption(const QString& title, const QString& subtitle);
    const QString& title() const { return m_title; }
    const QString& subtitle() const { return m_subtitle; }

    // The first row of a table. Of its columns so many at the end hold numbers, all others texts, whatever
    // they look like.
    void addHeads(const QStringList& heads, int numbers);
    // Cells are plain texts: numbers with a decimal comma and without grouping.
    void addRow(const QStringList& cells);
    qint64 rowCount() const { return m_rows; } // the heads included
    bool isEmpty() const { return m_rows == 0; }
    bool isNumber(std::size_t column) const { return column >= m_firstNumber; }
    // Characters of the longest cell of each column.
    const std::vector<qsizetype>& widths() const { return m_widths; }
    void eachRow(const std::function<void(const Row&)>& row) const;

    // Characters that the encoding does not have; they would be written as "?".
    qint64 unencodable(Encoding encoding) const;
    // Writes the whole file or nothing: an earlier file of the name stays until the new one is complete.
    // Lines end in CR LF; a cell with a semicolon, a quote or a line end is quoted. A cell that a spreadsheet
    // would take for a formula and that is no number gets an apostrophe before it. Faults of the file.
    void save(const QString& path, Encoding encoding) const;

  private:
    void pack();
    void eachCsvLine(const std::function<void(const QByteArray&)>& line) const;

    // Each row as the number of its cells and each cell's length and UTF-8. What is complete is kept
    // compressed: a list of a hundred thousand sheets has tens of megabytes that mostly nobody asks for.
    std::vector<QByteArray> m_packed;
    QByteArray m_open;
    qint64 m_rows = 0;
    std::size_t m_firstNumber = noNumbers;
    std::vector<qsizetype> m_widths;
    QString m_title, m_subtitle;

    static constexpr std::size_t noNumbers = static_cast<std::size_t>(-1);
};

} // namespace vandrel
