// The layout of documents in the slowest and plainest way: character by character, every page from the first
// one on, nothing kept. What the print engine does faster has to come out the same.
#pragma once

#include "print/print_engine.h"

#include <array>

namespace vandrel::test::plain {

using namespace Qt::StringLiterals;

// A block of text; lengths in twips, but the values of its tags in scaleMode.
struct Item {
    QString text;
    QString fontName = u"Arial"_s;
    float fontSize = 10;
    bool bold = false, italic = false, underlined = false;
    long color = 0;
    long alignment = 0;
    float indentLeft = 0, indentRight = 0, lineSpacing = 0, maxHeight = 0, top = 0;
    bool absolute = false;
    int absPage = 0;
    long newPage = 0;
    bool showBorder = false;
    int borderLine = 0;
    long borderColor = 0, borderShading = -1;
    int underline = 0, underlineAll = 0;
    long scaleMode = 1;

    // Results.
    int lineCount = 0;
    qsizetype openFrom = -1;         // where a last line begins that got no height; -1: there is none
    std::vector<double> lineHeights; // from 0
    double width = 0, height = 0;
    int startPage = 0, endPage = 0;
    double positionStart = 0, positionEnd = 0;
};

class Document {
  public:
    Document(TextMeter& textMeter, const PaperSize& paperSize, double pixel)
        : meter(textMeter), paper(paperSize), twipsPerPixelY(pixel) {}

    double marginLeft = 1440, marginRight = 1440, marginTop = 1440, marginBottom = 1440;
    std::vector<Item> items;
    std::array<Item, 5> headers, footers;
    std::array<bool, 5> setHeader{}, setFooter{};
    QString appName;

    int paginate();
    int pages() const { return m_pages; }
    // After paginate(). False: items were left when the last page was full.
    bool walk(PageTarget& target, int startPage, int endPage);

  private:
    void getSize(Item& item, const QString& text) const;
    void headerAndFooter(int page, bool isLast);
    QString parsed(const QString& text, int page) const;
    double bodyHeight() const { return paper.height - marginTop - marginBottom - m_header - m_footer; }
    double left(const Item& item) const { return marginLeft + item.indentLeft; }
    double right(const Item& item) const { return paper.width - marginRight - item.indentRight; }
    int drawItem(const Item& item, const QString& text, PageTarget& target, int resumePos, double left,
                 double right, double top, double bottom, bool drawing);
    void drawHead(PageTarget& target, int page);
    void drawFoot(PageTarget& target, int page);

    TextMeter& meter;
    PaperSize paper;
    double twipsPerPixelY;
    int m_pages = 0;
    double m_header = 0, m_footer = 0;
    Item* m_headItem = nullptr;
    Item* m_footItem = nullptr;
    double m_y = 0; // CurrentY of the target
};

} // namespace vandrel::test::plain
