#include "print/segment_scan.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

using namespace Qt::StringLiterals;

namespace vandrel {

namespace {

// Both without regard to case; name: in capitals. The names of tags are plain letters, which need no look
// into Qt's tables; a list has a dozen of them on every line.
bool begins(QStringView body, QLatin1StringView name) {
    if (body.size() < name.size()) return false;
    for (qsizetype at = 0; at < name.size(); ++at) {
        char16_t unit = body[at].unicode();
        if (unit > 0x7F) return body.startsWith(name, Qt::CaseInsensitive);
        if (unit >= u'a' && unit <= u'z') unit -= u'a' - u'A';
        if (unit != name[at].unicode()) return false;
    }
    return true;
}
bool same(QStringView body, QLatin1StringView name) {
    return body.size() == name.size() && begins(body, name);
}

QString tagValue(QStringView body) {
    return qcTextItem::GetTagValue(body);
}

// The value of an indent tag, straight from the text: a list has several of them on every line. A colour is
// its number here as well.
double indentOf(QStringView body) {
    const QStringView value = body.mid(8);
    return value.startsWith(u'#') ? leadingNumber(tagValue(body)) : leadingNumber(value);
}

// A colour number of any size as R + 256 G + 65536 B.
long colourOf(QStringView value) {
    const double number = leadingNumber(value);
    return std::abs(number) < 4e9 ? static_cast<long>(static_cast<long long>(number) & 0xFFFFFF) : 0;
}

} // namespace

double leadingNumber(QStringView text) {
    int whole = 0;
    qsizetype at = 0;
    for (; at < std::min<qsizetype>(text.size(), 9) && text[at] >= u'0' && text[at] <= u'9'; ++at)
        whole = whole * 10 + (text[at].unicode() - u'0');
    if (at == text.size()) return whole; // nearly always; nothing is 0
    // No number of use is longer; a longer one loses digits that no printer shows.
    std::array<char, 40> digits{};
    std::size_t count = 0;
    for (const QChar letter : text.trimmed()) {
        const char16_t unit = letter.unicode();
        if (unit > 0x7F || count == digits.size()) break;
        digits[count++] = static_cast<char>(unit);
    }
    const char* first = digits.data();
    if (count > 0 && *first == '+') ++first;
    double number = 0;
    const auto read = std::from_chars(first, digits.data() + count, number);
    return read.ec == std::errc{} && std::isfinite(number) ? number : 0;
}

TagState::TagState(const TextStyle& style, TextMeter& meter, const PaperSize& paper)
    : font{&meter.face({style.fontName, style.fontSize, style.fontBold, style.fontItalic}),
           style.fontUnderline, style.fontColor},
      alignment(style.alignment), m_style(style), m_meter(meter), m_paper(paper) {}

TagState::Effect TagState::read(std::u16string_view text, std::size_t at, std::size_t& next) {
    if (m_close <= at && m_close < text.size()) m_close = std::min(text.find(u'>', at), text.size());
    if (m_close >= text.size()) return Effect::none;
    const QStringView body(text.data() + at + 1, static_cast<qsizetype>(m_close - at - 1));
    const Effect effect = apply(body);
    if (effect != Effect::none) next = m_close + 1;
    return effect;
}

TagState::Effect TagState::apply(QStringView body) {
    if (body.size() < 3 || body[0] == u'/') return applyShort(body);
    if (begins(body, "LINDENT="_L1) || begins(body, "RINDENT="_L1)) {
        const bool left = body[0] == u'L' || body[0] == u'l';
        (left ? tagLeft : tagRight) = toTwips(indentOf(body), m_style.scaleMode, Axis::horizontal, m_paper);
        return Effect::forced;
    }
    if (begins(body, "FORCE"_L1)) return Effect::forced;
    if (begins(body, "FONT="_L1)) {
        FontChoice choice = font.face->choice();
        choice.name = tagValue(body);
        setFace(choice);
    } else if (begins(body, "COLOR="_L1)) {
        font.color = colourOf(tagValue(body));
    } else if (begins(body, "SIZE="_L1)) {
        FontChoice choice = font.face->choice();
        choice.size = static_cast<float>(std::clamp(leadingNumber(tagValue(body)), -1e6, 1e6));
        setFace(choice);
    } else if (begins(body, "ALIGN="_L1)) {
        const QString word = tagValue(body).toUpper();
        if (word == "LEFT"_L1)
            alignment = item_alignment::left;
        else if (word == "RIGHT"_L1)
            alignment = item_alignment::right;
        else if (word == "CENTRE"_L1 || word == "CENTER"_L1)
            alignment = item_alignment::centre;
        else if (word == "JUSTIFY"_L1)
            alignment = item_alignment::justify;
    }
    return Effect::applied; // an unknown tag vanishes without trace
}

TagState::Effect TagState::applyShort(QStringView body) {
    if (same(body, "/LINDENT"_L1)) {
        tagLeft = 0;
        return Effect::closed;
    }
    if (same(body, "/RINDENT"_L1)) {
        tagRight = 0;
        return Effect::closed;
    }
    FontChoice choice = font.face->choice();
    if (same(body, "B"_L1) || same(body, "/B"_L1)) {
        choice.bold = body[0] != u'/';
    } else if (same(body, "I"_L1) || same(body, "/I"_L1)) {
        choice.italic = body[0] != u'/';
    } else if (same(body, "/FONT"_L1)) {
        choice.name = m_style.fontName;
    } else if (same(body, "/SIZE"_L1)) {
        choice.size = m_style.fontSize;
    } else {
        if (same(body, "U"_L1) || same(body, "/U"_L1))
            font.underline = body[0] != u'/';
        else if (same(body, "/COLOR"_L1))
            font.color = m_style.fontColor;
        else if (same(body, "/ALIGN"_L1))
            alignment = m_style.alignment;
        else
            return Effect::none;
        return Effect::applied;
    }
    setFace(choice);
    return Effect::applied;
}

SegmentScan::SegmentScan(std::u16string_view text, const TextStyle& style, PrintEngine& engine,
                         Purpose purpose, double fullWidth)
    : m_text(text), m_purpose(purpose), m_fullWidth(fullWidth),
      m_state(style, engine.meter, engine.printer.size()), m_room(fullWidth), m_drawingRoom(fullWidth) {}

void SegmentScan::resumeAt(std::size_t place) {
    while (m_at < place) {
        std::size_t next = m_at + 1;
        if (m_text[m_at] == u'<') m_state.read(m_text, m_at, next);
        m_at = next;
    }
    m_resumed = true;
    m_lineLeft = m_state.tagLeft;
    m_lineRight = m_state.tagRight;
    m_room = m_drawingRoom = roomBetween(m_lineLeft, m_lineRight);
}

bool SegmentScan::fits(double width) {
    const bool yes = width <= m_room;
    if (m_drawsAlike && m_room != m_drawingRoom && yes != (width <= m_drawingRoom)) m_drawsAlike = false;
    return yes;
}

// True when the "<" at m_at begins a tag; m_at is then after it, and a forced end is told in segment.end.
bool SegmentScan::readTag(Segment& segment) {
    const TagState::Effect effect = m_state.read(m_text, m_at, m_at);
    if (effect == TagState::Effect::none) return false;
    if (effect == TagState::Effect::forced) segment.end = Segment::End::forced;
    if (m_purpose == Purpose::measuring &&
        (effect == TagState::Effect::forced || effect == TagState::Effect::closed)) {
        m_room = roomBetween(m_state.tagLeft, m_state.tagRight);
        // A page that begins between two closed indents is drawn with a room between the two known ones,
        // unless an indent is negative.
        if (m_state.tagLeft < 0 || m_state.tagRight < 0) m_drawsAlike = false;
    }
    return true;
}

bool SegmentScan::next(Segment& segment) {
    if (m_at >= m_text.size() && !m_carried) return false;
    const double heightBefore = m_forced ? m_lineHeight : -1;
    beginSegment(segment);
    m_open.freshHeight = m_carried ? m_carry.height : 0;
    m_open.wordHeight = m_open.freshHeight;
    m_carried = false;
    while (step(segment)) {
    }
    m_resumed = false;
    endSegment(segment, heightBefore);
    return true;
}

void SegmentScan::beginSegment(Segment& segment) {
    if (m_forced) {
        // From here on the indents are those that the tags have set.
        m_lineLeft = m_state.tagLeft;
        m_lineRight = m_state.tagRight;
        m_drawingRoom = roomBetween(m_lineLeft, m_lineRight);
        if (m_purpose == Purpose::drawing) m_room = m_drawingRoom;
    } else {
        m_lineHeight = 0;
    }
    m_forced = false;
    segment.start = m_carried ? m_carry.start : m_at;
    segment.font = m_carried ? m_carry.font : m_state.font;
    segment.lineLeft = m_lineLeft;
    segment.lineRight = m_lineRight;
    segment.room = m_room;
    segment.end = Segment::End::text;
    m_open = {};
    m_open.word.start = segment.start;
    m_open.word.font = segment.font;
    m_open.word.alignment = m_carried ? m_carry.alignment : m_state.alignment;
    m_open.word.width = m_carried ? m_carry.width : 0;
}

// One character or tag; false when the segment has ended.
bool SegmentScan::step(Segment& segment) {
    if (m_at >= m_text.size()) {
        m_open.lineWidth += m_open.word.width;
        segment.stop = m_text.size();
        return false;
    }
    const std::size_t here = m_at;
    const char16_t unit = m_text[here];
    if (unit == u' ') {
        m_open.word.width += m_state.font.face->width(u' ');
        ++m_at;
        endWord();
        return true;
    }
    if (unit == u'\n' || unit == u'\r') {
        m_at += unit == u'\r' && here + 1 < m_text.size() && m_text[here + 1] == u'\n' ? 2 : 1;
        m_open.lineWidth += m_open.word.width;
        segment.stop = here;
        segment.end = Segment::End::paragraph;
        return false;
    }
    if (unit == u'<' && readTag(segment)) {
        if (segment.end != Segment::End::forced) return true;
        m_open.lineWidth += m_open.word.width;
        segment.stop = here;
        m_forced = true;
        return false;
    }
    return takeCharacter(segment, here);
}

// The word is on the line, with the blank or hyphen at its end; the next one begins at m_at.
void SegmentScan::endWord() {
    m_open.lineWidth += m_open.word.width;
    m_open.word = {m_at, m_state.font, m_state.alignment, 0, 0};
    m_open.wordHeight = 0;
    m_open.hasWords = true;
}

bool SegmentScan::takeCharacter(Segment& segment, std::size_t here) {
    const char16_t unit = m_text[here];
    const Face& face = *m_state.font.face;
    char32_t character = unit;
    m_at = here + 1;
    if (QChar::isHighSurrogate(unit) && m_at < m_text.size() && QChar::isLowSurrogate(m_text[m_at]))
        character = QChar::surrogateToUcs4(unit, m_text[m_at++]);
    m_lineHeight = std::max(m_lineHeight, face.height());
    m_open.wordHeight = std::max(m_open.wordHeight, face.height());
    const double width = face.width(character);
    const bool lineEmpty = !m_open.hasWords && m_open.word.width == 0;
    // Resumed, the line begins with what the line before it could not take: not asked again, or a page that
    // is narrower than a letter would begin with an empty line and lose its last one.
    if ((m_resumed && lineEmpty) || fits(m_open.lineWidth + m_open.word.width + width)) {
        m_open.word.width += width;
        if (unit == u'-') endWord();
        return true;
    }
    overflow(segment, here, width);
    return false;
}

// The character at that place, so wide, is too much for the line.
void SegmentScan::overflow(Segment& segment, std::size_t here, double width) {
    segment.end = Segment::End::overflow;
    if (m_open.hasWords) {
        // The line ends before the word, which goes on on the next one.
        m_carry = m_open.word;
        m_carry.width += width;
        m_carry.height = m_open.wordHeight;
    } else {
        // A single word is wider than the line: it is cut here.
        m_open.lineWidth += m_open.word.width;
        m_carry = {here, m_state.font, m_state.alignment, width, m_state.font.face->height()};
    }
    segment.stop = m_carry.start;
    m_carried = true;
    // Nobody asks whether the carried word fits; on a page that begins with it its letters are asked, and its
    // hyphen is one again.
    if (m_carry.width > m_room || m_text[here] == u'-') m_drawsAlike = false;
}

// heightBefore: of the line's segments before this one, when the line was open; -1 otherwise.
void SegmentScan::endSegment(Segment& segment, double heightBefore) {
    segment.width = m_open.lineWidth;
    // A tag in the word that goes on on the next line has no say on the segment that ended before it.
    segment.alignment = m_carried ? m_carry.alignment : m_state.alignment;
    const double freshHeight = std::max(m_open.freshHeight, m_lineHeight);
    if (m_lineHeight == 0) m_lineHeight = m_state.font.face->height();
    if (freshHeight > 0 && freshHeight != m_lineHeight) m_drawsAlike = false;
    segment.height = m_lineHeight;
    // Drawing asks for each segment whether it fits; measuring knows the whole line's height only.
    if (heightBefore >= 0 && m_lineHeight > heightBefore) m_drawsAlike = false;
}

} // namespace vandrel
