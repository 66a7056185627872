// Paints laid-out pages with a QPainter: onto paper, into a PDF, into the preview at any zoom. Text stays
// text, so that it is sharp everywhere and can be searched in a PDF. Knows no layout.
#pragma once

#include "print/font_meter.h"
#include "print/page_target.h"

#include <QColor>
#include <QPainter>
#include <QPointF>

namespace vandrel {

class PagePainter : public PageTarget {
  public:
    // The painter is open, its origin is the paper's upper left corner; scale: its units in one twip. It must
    // outlive this object, which gives it back as it was.
    explicit PagePainter(QPainter& painter, double scale = 1);
    ~PagePainter() override;
    PagePainter(const PagePainter&) = delete;
    PagePainter& operator=(const PagePainter&) = delete;

    // What lies further than 17 metres off, or at no number, is not painted.
    void text(const TextRun& run) override;
    void rule(double left, double right, double y, double width, long color) override;
    void box(double left, double top, double right, double bottom, long fill, double outline,
             long color) override;

  private:
    const PageFont& font(const Face& face);
    void usePen(long color);
    void flushGlyphs(const PageFont& font, double baseLine);
    void underline(const PageFont& font, double left, double right, double baseLine, long color);
    void fill(double left, double top, double right, double bottom, long color);

    QPainter& m_painter;
    double m_pixel; // twips of a pixel that edges are moved to; 0: they stay where they are
    long m_pen = -1;
    const Face* m_lastFace = nullptr;
    const PageFont* m_lastFont = nullptr;
    std::map<const Face*, std::unique_ptr<PageFont>> m_fonts;
    std::vector<quint32> m_glyphs;
    std::vector<QPointF> m_positions;
};

// The colour of R + 256 G + 65536 B; higher bits are ignored.
QColor pageColor(long color);

} // namespace vandrel
