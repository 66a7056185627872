#include "print/plain_layout.h"

#include <QRegularExpression>

#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

namespace vandrel::test::plain {

namespace {

// What tags change.
struct State {
    FontChoice font;
    bool underline = false;
    long color = 0;
    long alignment = 0;
    double tagLeft = 0, tagRight = 0;
};

State baseState(const Item& item) {
    return {{item.fontName, item.fontSize, item.bold, item.italic},
            item.underlined,
            item.color,
            item.alignment,
            0,
            0};
}

double number(const QString& text) {
    static const QRegularExpression leading(u"^ *([+-]?[0-9]*(\\.[0-9]*)?)"_s);
    return leading.match(text).captured(1).toDouble();
}

QString valueOf(const QString& body) {
    const qsizetype equals = body.indexOf(u'=');
    if (equals < 0) return {};
    QString value = body.mid(equals + 1);
    if (!value.startsWith(u'#')) return value;
    static const QRegularExpression hex(u"^#([0-9A-F]{2})([0-9A-F]{2})([0-9A-F]{2})$"_s);
    const auto match = hex.match(value.toUpper());
    if (!match.hasMatch()) return u"0"_s;
    const auto part = [&](int which) { return match.captured(which).toLong(nullptr, 16); };
    return QString::number(part(1) + 256 * part(2) + 65536 * part(3));
}

// The tag that begins at "<"; its end is after ">". Not a tag: end is 0.
struct Tag {
    qsizetype end = 0;
    QString body;  // upper-cased
    QString value; // as it was written
};

Tag tagAt(const QString& text, qsizetype at) {
    if (text[at] != u'<') return {};
    const qsizetype close = text.indexOf(u'>', at);
    if (close < 0) return {};
    const QString written = text.mid(at + 1, close - at - 1);
    const QString body = written.toUpper();
    if (written.size() < 3 || body.startsWith(u'/')) {
        static const QStringList known =
            u"B U I /B /U /I /FONT /COLOR /SIZE /ALIGN /LINDENT /RINDENT"_s.split(u' ');
        if (!known.contains(body)) return {};
    }
    return {close + 1, body, valueOf(written)};
}

// Returns whether the tag ends the segment.
bool act(const Tag& tag, const Item& item, const PaperSize& paper, State& state) {
    const auto length = [&] { return toTwips(number(tag.value), item.scaleMode, Axis::horizontal, paper); };
    const QString& body = tag.body;
    if (body == u"B" || body == u"/B")
        state.font.bold = body == u"B";
    else if (body == u"I" || body == u"/I")
        state.font.italic = body == u"I";
    else if (body == u"U" || body == u"/U")
        state.underline = body == u"U";
    else if (body == u"/FONT")
        state.font.name = item.fontName;
    else if (body == u"/COLOR")
        state.color = item.color;
    else if (body == u"/SIZE")
        state.font.size = item.fontSize;
    else if (body == u"/ALIGN")
        state.alignment = item.alignment;
    else if (body == u"/LINDENT")
        state.tagLeft = 0;
    else if (body == u"/RINDENT")
        state.tagRight = 0;
    else if (body.startsWith(u"FONT="))
        state.font.name = tag.value;
    else if (body.startsWith(u"COLOR="))
        state.color = static_cast<long>(number(tag.value));
    else if (body.startsWith(u"SIZE="))
        state.font.size = static_cast<float>(number(tag.value));
    else if (body.startsWith(u"ALIGN=")) {
        static const QStringList words = u"LEFT CENTRE RIGHT JUSTIFY CENTER"_s.split(u' ');
        const auto word = words.indexOf(tag.value.toUpper());
        if (word >= 0) state.alignment = word == 4 ? 1 : static_cast<long>(word);
    } else if (body.startsWith(u"LINDENT=")) {
        state.tagLeft = length();
        return true;
    } else if (body.startsWith(u"RINDENT=")) {
        state.tagRight = length();
        return true;
    } else
        return body.startsWith(u"FORCE");
    return false;
}

// The text's character there: a surrogate pair is one.
qsizetype sizeAt(const QString& text, qsizetype at) {
    return text[at].isHighSurrogate() && at + 1 < text.size() && text[at + 1].isLowSurrogate() ? 2 : 1;
}

// The scan that measuring and drawing share. It gives the text's segments one after the other.
struct Scan {
    const Item& item;
    const QString& text;
    TextMeter& meter;
    const PaperSize& paper;
    State state;
    double avail;
    double fullWidth; // measuring: indents of tags act at once; negative: they do not

    // The segment found.
    qsizetype start = 0, end = 0; // in the text
    double width = 0, height = 0;
    bool forced = false;    // ended by a tag
    bool paragraph = false; // ended by a line end, a tag or the end of the text
    State endState{};       // where the segment ends

    qsizetype pos = 0, next = 0, wordStart = 0;
    double lineW = 0, wordW = 0, maxH = 0;
    int wordEnd = 0;
    bool resumed = false;

    double widthOf(const QString& ch) const { return meter.face(state.font).width(ch); }

    bool find() {
        if (pos >= text.size() && wordStart >= pos) return false;
        start = next;
        forced = false;
        State wordState = state; // where the word begins
        if (wordStart < pos) wordState = endState;
        for (;;) {
            int kind = 0;
            QString ch;
            const qsizetype at = pos;
            const State before = state;
            if (pos >= text.size()) {
                kind = 3;
            } else if (const Tag tag = tagAt(text, pos); tag.end > 0) {
                forced = act(tag, item, paper, state);
                if (fullWidth >= 0) avail = fullWidth - state.tagLeft - state.tagRight;
                pos = tag.end;
                if (forced) kind = 3;
            } else {
                ch = text.mid(pos, sizeAt(text, pos));
                pos += ch.size();
                if (ch == u" ") {
                    kind = 1;
                } else if (ch == u"\n" || ch == u"\r") {
                    if (ch == u"\r" && pos < text.size() && text[pos] == u'\n') ++pos;
                    kind = 3;
                } else {
                    maxH = std::max(maxH, meter.face(state.font).height());
                    // A line that was begun again on a new page takes its first character unasked, as the
                    // line that it was cut from had given it away.
                    const bool first = resumed && lineW + wordW == 0;
                    if (!first && lineW + wordW + widthOf(ch) > avail)
                        kind = 4;
                    else if (ch == u"-")
                        kind = 2;
                    else
                        wordW += widthOf(ch);
                }
            }
            if (kind == 0) continue;
            if (kind == 1 || kind == 2) {
                lineW += wordW + widthOf(ch);
                wordW = 0;
                wordEnd = kind;
                wordStart = pos;
                wordState = state;
                continue;
            }
            if (kind == 3) {
                if (maxH == 0) maxH = meter.face(state.font).height();
                lineW += wordW;
                wordW = 0;
                end = at;
                next = wordStart = pos;
                endState = state;
            } else if (wordEnd != 0) {
                end = next = wordStart;
                endState = wordState;
                wordW += widthOf(ch);
            } else {
                lineW += wordW;
                wordW = widthOf(ch);
                end = next = wordStart = at;
                endState = before;
            }
            paragraph = kind == 3;
            width = lineW;
            height = maxH;
            if (!forced) maxH = 0;
            lineW = 0;
            wordEnd = 0;
            resumed = false;
            return true;
        }
    }
};

} // namespace

void Document::getSize(Item& item, const QString& text) const {
    const double full = paper.width - marginLeft - marginRight - item.indentRight - item.indentLeft;
    item.lineHeights.assign(static_cast<std::size_t>(item.lineCount), 0); // the count stays, the lines go
    if (full <= 0) return;
    item.lineHeights.clear();
    double total = item.absolute ? 0 : item.top;
    Scan scan{item, text, meter, paper, baseState(item), full, full};
    item.openFrom = -1;
    while (scan.find())
        if (scan.forced) {
            if (item.openFrom < 0) item.openFrom = scan.start;
        } else {
            item.openFrom = -1;
            item.lineHeights.push_back(scan.height + item.lineSpacing);
            total += item.lineHeights.back();
            item.width = std::max(item.width, scan.width);
        }
    item.lineCount = static_cast<int>(item.lineHeights.size());
    item.width = item.lineCount < 2 ? std::min(item.width, scan.avail) : scan.avail;
    if (item.showBorder && item.borderLine >= 1 && item.lineCount > 0)
        item.lineHeights.back() += twipsPerPixelY * item.borderLine;
    item.height = total;
}

QString Document::parsed(const QString& text, int page) const {
    QString result = text;
    result.replace(u"#pagenumber#"_s, QString::number(page));
    result.replace(u"#pagetotal#"_s, QString::number(m_pages));
    result.replace(u"#appname#"_s, appName);
    return result;
}

void Document::headerAndFooter(int page, bool isLast) {
    const auto choose = [&](std::array<Item, 5>& slots_, const std::array<bool, 5>& used) -> Item* {
        int slot = -1;
        if (used[4]) slot = 4;
        if (page % 2 == 1 && used[2]) slot = 2;
        if (page % 2 == 0 && used[3]) slot = 3;
        if (page == 1 && used[0]) slot = 0;
        if (isLast && used[1]) slot = 1;
        if (slot < 0) return nullptr;
        Item& item = slots_[static_cast<std::size_t>(slot)];
        getSize(item, parsed(item.text, page));
        return &item;
    };
    m_headItem = choose(headers, setHeader);
    m_header = m_headItem ? m_headItem->height : 0;
    m_footItem = choose(footers, setFooter);
    m_footer = m_footItem ? m_footItem->height : 0;
}

int Document::paginate() {
    int lastFlow = static_cast<int>(items.size()) - 1;
    while (lastFlow >= 0 && items[static_cast<std::size_t>(lastFlow)].absolute)
        --lastFlow;
    int page = 1, highestAbsPage = 0;
    double y = 0;
    bool isLast = false;
    headerAndFooter(page, isLast);
    const auto tryLast = [&](double rest) {
        isLast = true;
        headerAndFooter(page, isLast);
        if (rest <= bodyHeight()) return;
        isLast = false;
        headerAndFooter(page, isLast);
    };
    const auto breakPage = [&] {
        ++page;
        isLast = false;
        headerAndFooter(page, isLast);
        y = 0;
    };
    for (int at = 0; at < static_cast<int>(items.size()); ++at) {
        Item& item = items[static_cast<std::size_t>(at)];
        getSize(item, item.text);
        if (item.absolute) {
            highestAbsPage = std::max(highestAbsPage, item.absPage);
            continue;
        }
        if (item.newPage & 1) breakPage();
        if (at == lastFlow) tryLast(item.height);
        item.startPage = item.endPage = 0;
        item.positionStart = y;
        y += item.top;
        double placed = 0;
        for (std::size_t line = 0; line < item.lineHeights.size(); ++line) {
            const double height = item.lineHeights[line];
            if (y + height <= bodyHeight()) {
                y += height;
                if (item.startPage == 0) item.startPage = page;
            } else {
                ++page;
                y = height;
                if (line == 0) {
                    item.startPage = page;
                    item.positionStart = 0;
                }
                if (at == lastFlow) tryLast(item.height - placed);
            }
            placed += height;
        }
        item.endPage = page;
        item.positionEnd = y;
        if (item.newPage & 2) breakPage();
    }
    // Nothing of a text may be missing: as many pages as drawing it takes.
    class Nowhere : public PageTarget {
        void text(const TextRun&) override {}
        void rule(double, double, double, double, long) override {}
        void box(double, double, double, double, long, double, long) override {}
    } nowhere;
    m_pages = std::max(page, highestAbsPage);
    while (!walk(nowhere, m_pages + 1, m_pages))
        ++m_pages;
    return m_pages;
}

// Returns the position from which to go on, counted from 1; 0: all is drawn.
int Document::drawItem(const Item& item, const QString& text, PageTarget& target, int resumePos, double left,
                       double right, double top, double bottom, bool drawing) {
    m_y = top;
    if (resumePos == 0 && !item.absolute) m_y += item.top;
    State lineState = baseState(item);
    double lineLeft = 0, lineRight = 0;
    if (resumePos > 0) {
        for (qsizetype at = 0; at < resumePos - 1;) {
            const Tag tag = tagAt(text, at);
            if (tag.end > 0) act(tag, item, paper, lineState);
            at = tag.end > 0 ? tag.end : at + 1;
        }
        lineLeft = lineState.tagLeft;
        lineRight = lineState.tagRight;
    }
    if (item.showBorder && drawing && (item.borderShading != -1 || item.borderLine > 0))
        target.box(left, top - 90, right, bottom + 90, item.borderShading,
                   std::max(0, item.borderLine) * twipsPerPixelY, item.borderColor);
    Scan scan{item, text, meter, paper, lineState, 0, -1};
    scan.pos = scan.next = scan.wordStart = std::max(0, resumePos - 1);
    scan.resumed = resumePos > 0;
    bool mustFit = resumePos == 0;
    while (right > left) {
        scan.avail = right - left - lineLeft - lineRight;
        if (!scan.find()) break;
        const bool open = item.openFrom >= 0 && scan.start >= item.openFrom;
        if (mustFit && !open && m_y + scan.height > bottom + 0.001) return static_cast<int>(scan.start) + 1;
        mustFit = mustFit || !scan.forced; // the first line of a new page is drawn in any case
        const double excess = scan.avail - scan.width;
        const long alignment = scan.endState.alignment;
        double x = left + lineLeft;
        if (alignment == 1) x = left + excess / 2;
        if (alignment == 2) x = right - scan.width;
        double spaceExtra = 0, charExtra = 0;
        if (alignment == 3 && !scan.paragraph) {
            QString visible;
            for (qsizetype at = scan.start; at < scan.end;) {
                const Tag tag = tagAt(text, at);
                if (tag.end == 0) visible += text[at];
                at = tag.end > 0 ? tag.end : at + 1;
            }
            auto length = visible.toUcs4().size();
            while (visible.endsWith(u' '))
                visible.chop(1);
            while (visible.startsWith(u' '))
                visible.remove(0, 1);
            const auto n = visible.count(u' ');
            const double blank = meter.face(lineState.font).width(U' ');
            if (n > 0 && std::trunc(excess / static_cast<double>(n)) <= 3 * blank)
                spaceExtra = excess / static_cast<double>(n);
            else if (const auto parts = length - 1 + 2 * n; parts > 0) {
                charExtra = excess / static_cast<double>(parts);
                spaceExtra = 3 * charExtra;
            }
        }
        for (qsizetype at = scan.start; at < scan.end;) {
            if (const Tag tag = tagAt(text, at); tag.end > 0) {
                act(tag, item, paper, lineState);
                at = tag.end;
                continue;
            }
            const QString ch = text.mid(at, sizeAt(text, at));
            const Face& face = meter.face(lineState.font);
            const std::array<double, 2> xs{x, x};
            if (drawing)
                target.text({ch, std::span(xs).first(static_cast<std::size_t>(ch.size())), m_y, &face,
                             lineState.underline, lineState.color, spaceExtra == 0 && charExtra == 0});
            x += face.width(ch) + (ch == u" " ? spaceExtra : charExtra);
            at += ch.size();
        }
        lineState = scan.endState;
        if (item.underlineAll > 0 && drawing)
            target.rule(left, right, m_y + scan.height, item.underlineAll * twipsPerPixelY, item.borderColor);
        if (scan.forced) {
            lineLeft = scan.state.tagLeft;
            lineRight = scan.state.tagRight;
        } else
            m_y += scan.height + item.lineSpacing;
    }
    if (item.underline > 0 && drawing)
        target.rule(left, right, bottom, item.underline * twipsPerPixelY, item.borderColor);
    return 0;
}

void Document::drawHead(PageTarget& target, int page) {
    const double limit = paper.height - marginBottom;
    for (const Item& item : items) {
        if (!item.absolute || (item.absPage != page && item.absPage != -1)) continue;
        const double top = item.top + marginTop;
        const double bottom = std::min(limit, top + (item.maxHeight > 0 ? item.maxHeight : item.height));
        drawItem(item, item.text, target, 0, left(item), right(item), top, bottom, true);
    }
    if (m_headItem)
        drawItem(*m_headItem, parsed(m_headItem->text, page), target, 0, left(*m_headItem),
                 right(*m_headItem), marginTop, marginTop + m_header, true);
}

void Document::drawFoot(PageTarget& target, int page) {
    const double bottom = paper.height - marginBottom;
    if (m_footItem)
        drawItem(*m_footItem, parsed(m_footItem->text, page), target, 0, left(*m_footItem),
                 right(*m_footItem), bottom - m_footItem->height, bottom, true);
}

bool Document::walk(PageTarget& target, int startPage, int endPage) {
    int page = 1;
    bool drawing = false;
    double y = 0;
    const auto begin = [&] {
        drawing = drawing || page >= startPage;
        headerAndFooter(page, page == m_pages);
        if (drawing) drawHead(target, page);
        y = m_header + marginTop;
    };
    const auto nextPage = [&] { // false: the walk ends
        if (drawing) drawFoot(target, page);
        if (++page > endPage) return false;
        begin();
        return true;
    };
    begin();
    for (const Item& item : items) {
        if (item.absolute) continue;
        if (item.newPage & 1 && !nextPage()) return false;
        int resume = 0;
        do {
            if (resume > 0 && !nextPage()) return false;
            const double bottom =
                y + item.height <= bodyHeight() ? y + item.height : paper.height - marginBottom - m_footer;
            m_y = y;
            resume = drawItem(item, item.text, target, resume, left(item), right(item), y, bottom, drawing);
            y = m_y;
        } while (resume > 0);
        if (item.newPage & 2 && !nextPage()) return false;
    }
    while (nextPage())
        ;
    return true;
}

} // namespace vandrel::test::plain
