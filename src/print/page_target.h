// What a laid-out page is drawn onto: paper, the preview, a PDF, or a recording in the tests. All lengths are
// twips from the paper's upper left corner.
#pragma once

#include "print/text_meter.h"

#include <QStringView>

#include <span>

namespace vandrel {

// A stretch of text in one font on one line.
struct TextRun {
    QStringView text;
    std::span<const double> xs; // left edge of every UTF-16 unit; both halves of a pair have the same one
    double y = 0;               // top of the text; the base line lies face->ascent() below
    const Face* face = nullptr;
    bool underline = false;
    long color = 0;      // R + 256 G + 65536 B
    bool natural = true; // each character begins where the one before ends: no stretching
};

class PageTarget {
  public:
    virtual ~PageTarget() = default;

    virtual void text(const TextRun& run) = 0;
    // A horizontal rule. Its width is given in twips and lies below y.
    virtual void rule(double left, double right, double y, double width, long color) = 0;
    // A box: fill -1 means none, outline width 0 means none.
    virtual void box(double left, double top, double right, double bottom, long fill, double outline,
                     long color) = 0;
};

} // namespace vandrel
