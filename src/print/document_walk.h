// The walk through a document that puts its items onto pages. It is the same with drawing switched off, which
// is how a late page is reached.
#pragma once

#include "print/qc_printer.h"
#include "print/segment_scan.h"

#include <functional>

namespace vandrel {

class DocumentWalk {
  public:
    // pageEnded is called after every drawn page, its footer included; false ends the walk.
    DocumentWalk(qcPrinter& document, std::function<PageTarget&()> target, std::function<bool()> pageEnded);

    // False when pageEnded has ended it.
    bool run(int startPage, int endPage);
    // Walks the whole document without drawing, so that no page has to be looked for later. Drawing may break
    // a line where measuring did not: what pagination has no page for gets further pages, so that no text is
    // left undrawn.
    void findPageStarts();

  private:
    struct Frame { // twips
        double left, right, top, bottom;
    };

    void refreshStarts();
    bool walk();
    void beginPage(const qcPrinter::PageStart& start);
    bool turnPage(const qcPrinter::PageStart& next);
    void drawBands(qcPrinter::Band band);
    void drawAbsolutes();
    bool drawFlow(const qcPrinter::PageStart& start);
    Frame flowFrame(const qcTextItem& item) const;

    // Draws one item, from resumePos on (1-based; 0: from its beginning, with its Top). 0: it is complete;
    // otherwise the position of the first segment that did not fit. turned: the page was turned for this
    // item, so that its first line is drawn even where it does not fit; it would be lost otherwise, and
    // everything after it.
    int DrawItem(const qcTextItem& item, int resumePos, const Frame& frame, bool drawing, bool turned);
    int passItem(const qcTextItem& item, int resumePos, const Frame& frame, bool turned);
    void drawSegment(const qcTextItem& item, const Segment& segment, const Frame& frame);
    void drawBox(const TextStyle& style, const Frame& frame);
    bool overflows(double height, const Frame& frame) const;

    qcPrinter& m_document;
    PrintEngine& m_engine;
    std::function<PageTarget&()> m_target;
    std::function<bool()> m_pageEnded;
    int m_page = 1;
    int m_startPage = 1;
    int m_endPage = 1;
    int m_total = 1;
    bool m_drawing = false;
    bool m_goOn = true;      // pageEnded has not ended it
    bool m_complete = false; // the last walk came to the end of the items
    double m_y = 0;          // the target's current y
    std::vector<char16_t> m_text;
    std::vector<double> m_xs;
};

} // namespace vandrel
