#include "print/document_walk.h"

#include <algorithm>
#include <cmath>

namespace vandrel {

namespace {

// The box lies this far outside the item, in twips.
constexpr double boxGap = 90;
// Sums of heights may differ in their last binary digit from the height they add up to.
constexpr double rounding = 0.001;

} // namespace

DocumentWalk::DocumentWalk(qcPrinter& document, std::function<PageTarget&()> target,
                           std::function<bool()> pageEnded)
    : m_document(document), m_engine(document.m_engine), m_target(std::move(target)),
      m_pageEnded(std::move(pageEnded)) {}

bool DocumentWalk::run(int startPage, int endPage) {
    m_startPage = std::max(startPage, 1);
    m_endPage = endPage;
    m_total = m_document.Pages();
    return walk();
}

void DocumentWalk::findPageStarts() {
    for (;; ++m_document.m_pages) {
        m_total = m_endPage = m_document.m_pages;
        m_startPage = m_endPage + 1;
        walk();
        if (m_complete) return;
    }
}

// What is known of the page starts holds as long as nothing that could move a line was written.
void DocumentWalk::refreshStarts() {
    auto& starts = m_document.m_starts;
    const unsigned geometry = m_engine.geometry();
    const double height = m_engine.printableHeight();
    const int items = m_document.m_items.Count();
    if (starts.writes == m_engine.writes && starts.geometry == geometry && starts.height == height &&
        starts.items == items && !starts.pages.empty())
        return;
    starts = {{{}}, {}, m_engine.writes, geometry, height, items};
    for (int index = 0; index < items; ++index)
        if ((m_document.m_items.begin() + index)->Absolute()) starts.absolutes.push_back(index);
}

bool DocumentWalk::walk() {
    m_document.shareGeometry();
    refreshStarts();
    const auto& starts = m_document.m_starts;
    m_page = std::min(m_startPage, static_cast<int>(starts.pages.size()));
    if (m_page > m_endPage) return true;
    const qcPrinter::PageStart first = starts.pages[static_cast<std::size_t>(m_page - 1)];
    beginPage(first);
    m_complete = drawFlow(first);
    if (!m_complete) return m_goOn;
    // The pages left over carry absolute items, header and footer only.
    while (turnPage({starts.items, 0, false})) {
    }
    return m_goOn;
}

void DocumentWalk::beginPage(const qcPrinter::PageStart& start) {
    auto& starts = m_document.m_starts.pages;
    if (m_page == static_cast<int>(starts.size()) + 1) starts.push_back(start);
    m_drawing = m_page >= m_startPage;
    m_document.prepareBands(m_page, m_page == m_total, m_total);
    if (m_drawing) {
        drawAbsolutes();
        drawBands(qcPrinter::Band::header);
    }
    m_y = m_engine.headerHeight + m_engine.marginTop;
}

// False: the walk is over.
bool DocumentWalk::turnPage(const qcPrinter::PageStart& next) {
    if (m_drawing) {
        drawBands(qcPrinter::Band::footer);
        if (m_pageEnded && !m_pageEnded()) m_goOn = false;
    }
    if (!m_goOn || ++m_page > m_endPage) return false;
    beginPage(next);
    return true;
}

bool DocumentWalk::drawFlow(const qcPrinter::PageStart& start) {
    auto& items = m_document.m_items;
    int position = start.position;
    bool broken = start.broken;
    // The page was turned in the middle of this item.
    bool turned = start.position > 0;
    for (int index = start.item; index < items.Count();
         ++index, position = 0, broken = false, turned = false) {
        const qcTextItem& item = *(items.begin() + index);
        if (item.Absolute()) continue;
        if ((item.NewPage() & page_break::before) != 0 && !broken && !turnPage({index, 0, true}))
            return false;
        while ((position = DrawItem(item, position, flowFrame(item), m_drawing, turned)) != 0) {
            if (!turnPage({index, position, true})) return false;
            turned = true;
        }
        if ((item.NewPage() & page_break::after) != 0 && !turnPage({index + 1, 0, false})) return false;
    }
    return true;
}

DocumentWalk::Frame DocumentWalk::flowFrame(const qcTextItem& item) const {
    const TextStyle& style = *item.m_style;
    const double end = m_y + item.m_height;
    return {style.indentLeft + m_engine.marginLeft,
            m_engine.paper.width - style.indentRight - m_engine.marginRight, m_y,
            end <= m_engine.bodyHeight()
                ? end
                : m_engine.paper.height - m_engine.marginBottom - m_engine.footerHeight};
}

void DocumentWalk::drawBands(qcPrinter::Band band) {
    const bool header = band == qcPrinter::Band::header;
    const qcTextItem* item = m_document.m_band[static_cast<std::size_t>(band)];
    if (item == nullptr) return;
    const double bottom =
        header ? m_engine.marginTop + item->m_height : m_engine.paper.height - m_engine.marginBottom;
    DrawItem(*item, 0,
             {item->m_style->indentLeft + m_engine.marginLeft,
              m_engine.paper.width - m_engine.marginRight - item->m_style->indentRight,
              bottom - item->m_height, bottom},
             true, false);
}

// Drawn first, so that the body's text lies over them.
void DocumentWalk::drawAbsolutes() {
    for (const int index : m_document.m_starts.absolutes) {
        const qcTextItem& item = *(m_document.m_items.begin() + index);
        const TextStyle& style = *item.m_style;
        if (style.absPage != m_page && style.absPage != -1) continue;
        const double top = style.top + m_engine.marginTop + style.formOffset;
        const double bottom = top + (style.maxHeight > 0 ? style.maxHeight : item.m_height);
        DrawItem(item, 0,
                 {style.indentLeft + m_engine.marginLeft,
                  m_engine.paper.width - style.indentRight - m_engine.marginRight, top,
                  std::min(bottom, m_engine.paper.height - m_engine.marginBottom)},
                 true, false);
    }
}

bool DocumentWalk::overflows(double height, const Frame& frame) const {
    return m_y + height > frame.bottom + rounding;
}

int DocumentWalk::DrawItem(const qcTextItem& item, int resumePos, const Frame& frame, bool drawing,
                           bool turned) {
    const TextStyle& style = *item.m_style;
    m_y = frame.top;
    if (resumePos == 0 && !style.absolute) m_y += style.top;
    if (drawing && style.showBorder) drawBox(style, frame);
    if (!drawing && item.m_drawsAsMeasured) return passItem(item, resumePos, frame, turned);

    const double fullWidth = m_engine.printer.size().width - m_engine.marginLeft - m_engine.marginRight -
                             style.indentRight - style.indentLeft;
    if (fullWidth > 0) {
        if (style.useParsedText) {
            const auto* units = reinterpret_cast<const char16_t*>(style.parsedText.utf16());
            m_text.assign(units, units + style.parsedText.size());
        } else {
            item.m_text.unpack(m_text);
        }
        SegmentScan scan({m_text.data(), m_text.size()}, style, m_engine, SegmentScan::Purpose::drawing,
                         fullWidth);
        if (resumePos > 0) scan.resumeAt(static_cast<std::size_t>(resumePos - 1));
        Segment segment;
        while (scan.next(segment)) {
            // What measuring gave no line has no height that could be missing.
            const bool counted =
                item.m_openLine < 0 || segment.start < static_cast<std::size_t>(item.m_openLine);
            if (counted && overflows(segment.height, frame) && !turned)
                return static_cast<int>(segment.start) + 1;
            if (drawing) drawSegment(item, segment, frame);
            if (segment.end == Segment::End::forced) continue; // the line goes on, also a turned one
            turned = false;
            m_y += segment.height + style.lineSpacing;
        }
    }
    if (drawing && style.underline > 0)
        m_target().rule(frame.left, frame.right, frame.bottom,
                        style.underline * m_engine.printer.twipsPerPixelY(), style.borderColor);
    return 0;
}

// DrawItem without drawing, by the lines that measuring has found.
int DocumentWalk::passItem(const qcTextItem& item, int resumePos, const Frame& frame, bool turned) {
    const auto pass = [&](const qcTextItem::Line& line) {
        if (overflows(line.drawn, frame) && !turned) return false;
        turned = false;
        m_y += double{line.drawn} + item.m_style->lineSpacing;
        return true;
    };
    if (item.m_lineCount == 0) return 0;
    if (!item.m_lines) return pass(item.m_line) ? 0 : 1;
    const auto& lines = item.m_lines->lines;
    auto line = std::lower_bound(lines.begin(), lines.end(), std::max(resumePos - 1, 0),
                                 [](const qcTextItem::Line& at, int start) { return at.start < start; });
    for (; line != lines.end(); ++line) {
        if (!pass(*line)) return line->start + 1;
    }
    return 0;
}

void DocumentWalk::drawBox(const TextStyle& style, const Frame& frame) {
    const double outline = std::max(style.borderLine, 0) * m_engine.printer.twipsPerPixelY();
    if (style.borderShading == -1 && outline == 0) return;
    m_target().box(frame.left, frame.top - boxGap, frame.right, frame.bottom + boxGap, style.borderShading,
                   outline, style.borderColor);
}

namespace {

// How far a justified line's characters are moved apart, in twips.
struct Stretch {
    double blank = 0;
    double other = 0;
};

Stretch stretchOf(std::u16string_view visible, double excess, double blankWidth) {
    const auto length = static_cast<double>(visible.size());
    const std::size_t first = visible.find_first_not_of(u' ');
    double blanks = 0;
    if (first != std::u16string_view::npos) {
        const auto trimmed = visible.substr(first, visible.find_last_not_of(u' ') - first + 1);
        blanks = static_cast<double>(std::count(trimmed.begin(), trimmed.end(), u' '));
    }
    if (blanks > 0 && std::floor(excess / blanks) <= 3 * blankWidth) return {excess / blanks, 0};
    const double gaps = length - 1 + 2 * blanks;
    if (gaps <= 0) return {}; // a single letter has nothing to be moved away from
    return {3 * excess / gaps, excess / gaps};
}

} // namespace

void DocumentWalk::drawSegment(const qcTextItem& item, const Segment& segment, const Frame& frame) {
    const TextStyle& style = *item.m_style;
    // No tag reaches beyond its segment, so the end of one is looked for in the segment only.
    const std::u16string_view text(m_text.data(), segment.stop);
    TagState pen(style, m_engine.meter, m_engine.printer.size());

    Stretch stretch;
    if (segment.alignment == item_alignment::justify && segment.end == Segment::End::overflow) {
        std::u16string visible; // a letter outside the basic plane by its first half
        TagState reader = pen;
        for (std::size_t at = segment.start; at < segment.stop;) {
            std::size_t next = at + 1;
            const bool pair =
                at > segment.start && QChar::isLowSurrogate(text[at]) && QChar::isHighSurrogate(text[at - 1]);
            if (!pair && (text[at] != u'<' || reader.read(text, at, next) == TagState::Effect::none))
                visible += text[at];
            at = next;
        }
        stretch = stretchOf(visible, segment.room - segment.width, segment.font.face->width(u' '));
    }
    double x = frame.left + segment.lineLeft;
    if (segment.alignment == item_alignment::centre)
        x = frame.left +
            (segment.room - segment.width) / 2; // Deliberate: the tags' indents count through the room only
    else if (segment.alignment == item_alignment::right)
        x = frame.right - segment.width; // Deliberate: the tags' indents do not count at all

    pen.font = segment.font;
    const bool natural = stretch.blank == 0 && stretch.other == 0;
    m_xs.clear();
    std::size_t runStart = segment.start;
    FontNow runFont = pen.font;
    const auto flush = [&](std::size_t end) {
        if (!m_xs.empty())
            m_target().text({QStringView(text.data() + runStart, static_cast<qsizetype>(end - runStart)),
                             m_xs, m_y, runFont.face, runFont.underline, runFont.color, natural});
        m_xs.clear();
    };
    for (std::size_t at = segment.start; at < segment.stop;) {
        const char16_t unit = text[at];
        std::size_t next = at + 1;
        if (unit == u'<' && pen.read(text, at, next) != TagState::Effect::none) {
            flush(at);
            at = runStart = next;
            runFont = pen.font;
            continue;
        }
        char32_t character = unit;
        m_xs.push_back(x);
        if (QChar::isHighSurrogate(unit) && next < segment.stop && QChar::isLowSurrogate(text[next])) {
            character = QChar::surrogateToUcs4(unit, text[next++]);
            m_xs.push_back(x);
        }
        x += pen.font.face->width(character) + (unit == u' ' ? stretch.blank : stretch.other);
        at = next;
    }
    flush(segment.stop);

    if (style.underlineAll > 0)
        m_target().rule(frame.left, frame.right, m_y + segment.height,
                        style.underlineAll * m_engine.printer.twipsPerPixelY(), style.borderColor);
}

} // namespace vandrel
