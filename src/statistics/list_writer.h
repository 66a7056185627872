// Where a producer puts its list: the stream of texts with their looks, and the same as rows of a table.
// Behind it stands a document, or a recording in the tests.
#pragma once

#include <QString>
#include <QStringList>

namespace vandrel {

class qcPrinter;
struct TextLook;

struct LineLook {
    float size = 9; // points
    bool bold = false;
    bool underline = false;
    bool centred = false;
};

class ListWriter {
  public:
    virtual ~ListWriter() = default;

    // One printed line, tags and all. A blank is a blank line.
    virtual void text(const QString& line, const LineLook& look) = 0;
    // One row of the table; the first one is its heads.
    virtual void row(const QStringList& cells) = 0;
    // The text as it has to be written so that it stays within so many millimetres in a line of that size: a
    // text too wide comes back between SIZE tags. Nothing is cut.
    virtual QString fitted(const QString& text, double millimetres, const LineLook& look) const = 0;
};

class DocumentWriter : public ListWriter {
  public:
    explicit DocumentWriter(qcPrinter& document) : m_document(document) {}

    void text(const QString& line, const LineLook& look) override;
    void row(const QStringList& cells) override;
    QString fitted(const QString& text, double millimetres, const LineLook& look) const override;

  private:
    qcPrinter& m_document;
};

} // namespace vandrel
