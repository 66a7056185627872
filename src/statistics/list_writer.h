// Where a producer puts its list: the lines of a document with their looks, and the same as rows of its
// table.
#pragma once

#include <QString>
#include <QStringList>

namespace vandrel {

class qcPrinter;

struct LineLook {
    float size = 9; // points; every column of the lists keeps its place at this size
    bool bold = false;
    bool underline = false;
    bool centred = false;
};

class ListWriter {
  public:
    explicit ListWriter(qcPrinter& document) : m_document(document) {}

    // One printed line, tags and all. A blank is a blank line.
    void text(const QString& line, const LineLook& look);
    // What the table is of: the list's title and its period.
    void caption(const QString& title, const QString& subtitle);
    // The table's heads, of which so many at the end are of numbers; then its rows.
    void heads(const QStringList& names, int numbers);
    void row(const QStringList& cells);
    // Data as they have to be written so that they stay within so many millimetres in a line of that look: a
    // text too wide comes back between SIZE tags, and one that is too wide at 7 points too ends in "…". A "<"
    // in it prints.
    QString fitted(const QString& text, double millimetres, const LineLook& look) const;

  private:
    qcPrinter& m_document;
};

} // namespace vandrel
