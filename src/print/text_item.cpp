#include "print/text_item.h"

#include "platform/fault.h"
#include "platform/format.h"
#include "print/segment_scan.h"

#include <algorithm>
#include <cstdint>

using namespace Qt::StringLiterals;

namespace vandrel {

namespace {

// "#" and six hexadecimal digits, RRGGBB, as R + 256 G + 65536 B; anything else is 0.
long parseColour(const QString& value) {
    const QString text = value.toUpper();
    if (text.size() != 7 || text[0] != u'#') return 0;
    long channels = 0;
    for (qsizetype at = 1; at < 7; ++at) {
        const char16_t unit = text[at].unicode();
        const bool digit = unit >= u'0' && unit <= u'9';
        if (!digit && (unit < u'A' || unit > u'F')) return 0;
        channels = channels * 16 + (digit ? unit - u'0' : unit - u'A' + 10);
    }
    return (channels & 0xFF) << 16 | (channels & 0xFF00) | channels >> 16;
}

} // namespace

bool TextStyle::same(const TextStyle& other) const {
    const auto all = [](const TextStyle& s) {
        return std::tie(s.engine, s.fontName, s.fontSize, s.fontBold, s.fontItalic, s.fontUnderline,
                        s.fontColor, s.alignment, s.indentLeft, s.indentRight, s.lineSpacing, s.maxHeight,
                        s.absolute, s.absPage, s.left, s.top, s.newPage, s.showBorder, s.borderLine,
                        s.borderColor, s.borderShading, s.underline, s.underlineAll, s.scaleMode,
                        s.useParsedText, s.parsedText, s.formHeight, s.formOffset);
    };
    return all(*this) == all(other);
}

qcTextItem::qcTextItem(PrintEngine& engine) : m_style(new TextStyle) {
    m_style->engine = &engine;
}

TextStyle& qcTextItem::change(bool dirty) {
    TextStyle& style = *m_style; // its own from here on
    if (dirty) {
        m_measured = 0;
        style.engine->raisePaging();
    }
    return style;
}

// A write that asks for no pagination, but what is drawn from now on is not what was measured.
void qcTextItem::measuredOtherwise() {
    m_measured = 0;
    m_drawsAsMeasured = false;
    m_style.constData()->engine->linesMoved();
}

float qcTextItem::outside(float twips, Axis axis) const {
    return static_cast<float>(fromTwips(twips, m_style->scaleMode, axis, m_style->engine->printer.size()));
}

float qcTextItem::inside(float length, Axis axis) const {
    return static_cast<float>(toTwips(length, m_style->scaleMode, axis, m_style->engine->printer.size()));
}

void qcTextItem::setText(const QString& text) {
    m_text = PackedText(text);
    m_measured = 0;
    m_style.constData()->engine->raisePaging();
}
void qcTextItem::setFontName(const QString& name) {
    change(true).fontName = name;
}
void qcTextItem::setFontSize(float points) {
    change(true).fontSize = points;
}
void qcTextItem::setFontBold(bool bold) {
    change(true).fontBold = bold;
}
void qcTextItem::setFontItalic(bool italic) {
    change(true).fontItalic = italic;
}
void qcTextItem::setFontUnderline(bool underline) {
    change(true).fontUnderline = underline;
}
void qcTextItem::setFontColor(long color) {
    change(false).fontColor = color;
}
void qcTextItem::setAlignment(long alignment) {
    change(false).alignment = alignment;
}
float qcTextItem::IndentLeft() const {
    return outside(m_style->indentLeft, Axis::horizontal);
}
void qcTextItem::setIndentLeft(float length) {
    change(true).indentLeft = inside(length, Axis::horizontal);
}
float qcTextItem::IndentRight() const {
    return outside(m_style->indentRight, Axis::horizontal);
}
void qcTextItem::setIndentRight(float length) {
    change(true).indentRight = inside(length, Axis::horizontal);
}
float qcTextItem::LineSpacing() const {
    return outside(m_style->lineSpacing, Axis::vertical);
}
void qcTextItem::setLineSpacing(float length) {
    change(true).lineSpacing = inside(length, Axis::vertical);
}
float qcTextItem::MaxHeight() const {
    return outside(m_style->maxHeight, Axis::vertical);
}
void qcTextItem::setMaxHeight(float length) {
    change(true).maxHeight = inside(length, Axis::vertical);
}
void qcTextItem::setAbsolute(bool absolute) {
    change(true).absolute = absolute;
}
void qcTextItem::setAbsPage(int page) {
    // Pages are 16 bits wide; a document of that many empty pages would never be walked through.
    if (page != static_cast<std::int16_t>(page))
        throw Fault(fault::overflow, u"Túl nagy oldalszám: %1"_s.arg(page));
    change(false).absPage = page;
}
float qcTextItem::Left() const {
    return outside(m_style->left, Axis::horizontal);
}
void qcTextItem::setLeft(float length) {
    change(false).left = inside(length, Axis::horizontal);
}
float qcTextItem::Top() const {
    return outside(m_style->top, Axis::vertical);
}
void qcTextItem::setTop(float length) {
    change(true).top = inside(length, Axis::vertical);
}
void qcTextItem::setNewPage(long bits) {
    change(true).newPage = bits;
}
// The box's outline is part of the last line's height, but only the next pagination measures it.
void qcTextItem::setShowBorder(bool show) {
    m_measured = 0;
    change(false).showBorder = show;
}
void qcTextItem::setBorderLine(int width) {
    m_measured = 0;
    change(false).borderLine = width;
}
void qcTextItem::setBorderColor(long color) {
    change(false).borderColor = color;
}
void qcTextItem::setBorderShading(long color) {
    change(false).borderShading = color;
}
void qcTextItem::setUnderline(int width) {
    change(false).underline = width;
}
void qcTextItem::setUnderlineAll(int width) {
    change(false).underlineAll = width;
}
void qcTextItem::setScaleMode(long mode) {
    if (mode == m_style.constData()->scaleMode) return; // not a style of its own for nothing
    change(false).scaleMode = mode;
    measuredOtherwise(); // the tags' values mean other lengths now
}
void qcTextItem::setUseParsedText(bool use) {
    change(false).useParsedText = use;
    measuredOtherwise();
}
void qcTextItem::setFormHeight(float height) {
    change(false).formHeight = height;
}
void qcTextItem::setFormOffset(float offset) {
    change(false).formOffset = offset;
}

float qcTextItem::Width() const {
    return outside(m_width, Axis::horizontal);
}
float qcTextItem::Height() const {
    return outside(m_height, Axis::vertical);
}
float qcTextItem::PositionStart() const {
    return outside(m_positionStart, Axis::vertical);
}
float qcTextItem::PositionEnd() const {
    return outside(m_positionEnd, Axis::vertical);
}

float qcTextItem::LineHeight(int line) const {
    return m_lines ? m_lines->lines[static_cast<std::size_t>(line - 1)].height : m_line.height;
}

std::vector<float> qcTextItem::LineHeights() const {
    std::vector<float> heights{0};
    for (int line = 1; line <= m_lineCount; ++line)
        heights.push_back(LineHeight(line));
    return heights;
}

void qcTextItem::ParseFields(int pageNumber, int pageTotal, const QString& appName) {
    QString text = m_text.text();
    // Each page asks; a text without a field needs no clock.
    if (text.contains(u'#')) {
        const QDateTime now = m_style.constData()->engine->clock.now();
        text.replace("#pagenumber#"_L1, QString::number(pageNumber))
            .replace("#pagetotal#"_L1, QString::number(pageTotal))
            .replace("#longdate#"_L1, format::longDate(now.date()))
            .replace("#shortdate#"_L1, format::shortDate(now.date()))
            .replace("#longtime#"_L1, format::longTime(now.time()))
            .replace("#shorttime#"_L1, format::shortTime(now.time()))
            .replace("#appname#"_L1, appName);
    }
    if (text == m_style.constData()->parsedText) return;
    m_measured = 0;
    change(false).parsedText = text;
}

QString qcTextItem::GetTagValue(QStringView tag) {
    const qsizetype sign = tag.indexOf(u'=');
    if (sign < 0) return {};
    const QString value = tag.mid(sign + 1).toString();
    return value.startsWith(u'#') ? QString::number(parseColour(value)) : value;
}

void qcTextItem::GetSize() {
    const TextStyle& style = *m_style.constData();
    if (m_measured == style.engine->geometry()) return; // nothing has changed: the outcome would be the same
    static thread_local std::vector<char16_t> buffer;
    if (style.useParsedText) {
        const auto* units = reinterpret_cast<const char16_t*>(style.parsedText.utf16());
        buffer.assign(units, units + style.parsedText.size());
    } else {
        m_text.unpack(buffer);
    }
    measure({buffer.data(), buffer.size()});
}

void qcTextItem::measure(std::u16string_view text) {
    const TextStyle& style = *m_style.constData();
    PrintEngine& engine = *style.engine;
    m_measured = engine.geometry();
    const Face& base = engine.meter.face({style.fontName, style.fontSize, style.fontBold, style.fontItalic});
    m_defaultLineHeight = static_cast<float>(base.height() + style.lineSpacing);
    const double fullWidth = engine.printer.size().width - engine.marginLeft - engine.marginRight -
                             style.indentRight - style.indentLeft;
    m_lines.reset();
    m_line = {};
    if (!(fullWidth > 0)) {
        // Deliberate: LineCount, Width and Height keep their earlier values; the lines are gone.
        m_drawsAsMeasured = false;
        m_openLine = -1;
        return;
    }

    SegmentScan scan(text, style, engine, SegmentScan::Purpose::measuring, fullWidth);

    double total = style.absolute ? 0 : style.top;
    double width = m_width; // Deliberate: never reset, it only rises here
    std::vector<Line> lines;
    m_lineCount = 0;
    m_openLine = -1;
    bool lineOpen = false; // a forced end leaves the line open for what follows
    Line line;
    Segment segment;
    while (scan.next(segment)) {
        if (!lineOpen) line.start = static_cast<int>(segment.start);
        lineOpen = segment.end == Segment::End::forced;
        if (lineOpen) continue;
        line.drawn = static_cast<float>(segment.height);
        line.height = static_cast<float>(segment.height + style.lineSpacing);
        total += line.height;
        width = std::max(width, segment.width);
        if (++m_lineCount == 1)
            m_line = line;
        else
            lines.push_back(line);
    }
    m_width = static_cast<float>(m_lineCount < 2 ? std::min(width, scan.room()) : scan.room());
    m_height = static_cast<float>(total);
    // The last line grows by the box's outline; the item's height does not.
    const auto outline = static_cast<float>(
        style.showBorder && style.borderLine >= 1 ? engine.printer.twipsPerPixelY() * style.borderLine : 0);
    if (!lines.empty()) {
        lines.back().height += outline;
        lines.insert(lines.begin(), m_line);
        m_lines = new Lines;
        m_lines->lines = std::move(lines);
    } else if (m_lineCount == 1) {
        m_line.height += outline;
    }
    // Deliberate: a text that ends in a forced end has a last line without any height.
    if (lineOpen) m_openLine = line.start;
    m_drawsAsMeasured = scan.drawsAlike() && !lineOpen;
}

} // namespace vandrel
