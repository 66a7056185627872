#include "print/font_meter.h"

#include "platform/fault.h"

#include <QFontDatabase>
#include <QFontInfo>
#include <QFontMetricsF>
#include <QStringList>

#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

namespace vandrel {

namespace {

const QString serif = u"Liberation Serif"_s;
const QString sans = u"Liberation Sans"_s;

struct Substitution {
    const char* name;
    QString family;
};

const std::vector<Substitution>& substitutions() {
    static const std::vector<Substitution> all{
        {"Times New Roman", serif},
        {"Times New Roman CE", serif},
        {"Arial", sans},
        {"Arial CE", sans},
        {"Courier New", u"Liberation Mono"_s},
        {"Courier New CE", u"Liberation Mono"_s},
        {"Wingdings", u"DejaVu Sans"_s}, // for its check marks
    };
    return all;
}

// Of the width of a character from another font, which this program cannot know.
double soundWidth(double width) {
    return std::isfinite(width) ? std::max(width, 0.0) : 0.0;
}

class FontFace : public Face {
  public:
    FontFace(const FontChoice& choice, std::unique_ptr<PageFont> font)
        : Face(choice, font->height(), font->ascent()), m_font(std::move(font)) {}

  protected:
    double measure(char32_t character) const override { return m_font->sign(character).width; }

  private:
    std::unique_ptr<PageFont> m_font;
};

} // namespace

QString pageFamily(const QString& name) {
    const QString wanted = name.trimmed();
    for (const Substitution& known : substitutions())
        if (wanted.compare(QLatin1StringView(known.name), Qt::CaseInsensitive) == 0) return known.family;
    return QFontDatabase::hasFamily(wanted) ? wanted : sans;
}

void requirePageFonts() {
    QStringList missing;
    for (const QString& family : {serif, sans})
        if (QFontInfo(QFont(family)).family() != family) missing << family;
    if (!missing.isEmpty())
        throw Fault(fault::fileNotFound,
                    u"A nyomtatáshoz szükséges betűkészlet nincs telepítve ezen a gépen: %1."_s.arg(
                        missing.join(u", "_s)));
}

DecodedCharacter characterAt(QStringView text, qsizetype at) {
    if (text[at].isHighSurrogate() && at + 1 < text.size() && text[at + 1].isLowSurrogate())
        return {QChar::surrogateToUcs4(text[at], text[at + 1]), true};
    return {text[at].unicode(), false};
}

PageFont::PageFont(const FontChoice& choice) : m_font(pageFamily(choice.name)) {
    // Sizes in pixels do not ask any device for its resolution. Qt keeps them as whole numbers.
    m_font.setPixelSize(std::max(1, static_cast<int>(std::lround(usableFontSize(choice.size) * 20.0))));
    m_font.setBold(choice.bold);
    m_font.setItalic(choice.italic);
    m_font.setKerning(false);
    // Hinted widths differ from screen to screen, those of the design do not.
    m_font.setHintingPreference(QFont::PreferNoHinting);
    m_raw = QRawFont::fromFont(m_font);
}

double PageFont::height() const {
    const QFontMetricsF metrics(m_font);
    return metrics.ascent() + metrics.descent();
}

double PageFont::ascent() const {
    return QFontMetricsF(m_font).ascent();
}

const PageFont::Sign& PageFont::look(char32_t character) const {
    if (character < m_near.size()) {
        m_nearKnown[character] = true;
        return m_near[character] = find(character);
    }
    const auto known = m_far.find(character);
    return known != m_far.end() ? known->second : m_far.emplace(character, find(character)).first->second;
}

PageFont::Sign PageFont::find(char32_t character) const {
    if (QChar::isSurrogate(character) || character > QChar::LastValidCodePoint)
        character = QChar::ReplacementCharacter;
    switch (QChar::category(character)) {
    case QChar::Other_Control:
    case QChar::Separator_Line:
    case QChar::Separator_Paragraph:
        character = U' ';
        break;
    case QChar::Other_Format:
        if (character != U'\u00AD') return {}; // the soft hyphen is a hyphen wherever it is
        break;
    default:
        break;
    }
    const QString text = QString::fromUcs4(&character, 1);
    Sign sign;
    const QList<quint32> glyphs = m_raw.glyphIndexesForString(text);
    if (glyphs.size() == 1 && glyphs.first() != 0) {
        const QList<QPointF> advances = m_raw.advancesForGlyphIndexes(glyphs);
        sign.glyph = glyphs.first();
        sign.byGlyph = true;
        sign.width = soundWidth(advances.isEmpty() ? 0 : advances.first().x());
    } else {
        sign.byText = true;
        sign.width = soundWidth(QFontMetricsF(m_font).horizontalAdvance(text));
    }
    return sign;
}

std::unique_ptr<Face> FontMeter::makeFace(const FontChoice& choice) {
    return std::make_unique<FontFace>(choice, std::make_unique<PageFont>(choice));
}

} // namespace vandrel
