// The fonts of the printed page: which face of this machine is used for a name, how wide its characters are,
// and by which glyph each is painted. Measuring and painting ask the same table, so that they cannot differ.
// Needs Qt's fonts (a QGuiApplication), but no screen and no printer.
#pragma once

#include "print/text_meter.h"

#include <QFont>
#include <QRawFont>

#include <unordered_map>

namespace vandrel {

// One font at the size at which one unit is one twip. There is no shaping: each character is drawn as itself,
// without kerning and ligatures.
class PageFont {
  public:
    struct Sign {
        quint32 glyph = 0;    // in raw(); valid with byGlyph
        bool byGlyph = false; // painted by this glyph
        bool byText = false;  // not in the face: painted as a text of one character, from another font
        double width = 0;     // twips, finite, not negative
    };

    explicit PageFont(const FontChoice& choice);

    const QFont& font() const { return m_font; }
    const QRawFont& raw() const { return m_raw; }
    double height() const; // ascent and descent
    double ascent() const;
    // Control characters are blanks. Invisible format characters have no width and paint nothing. Half of a
    // surrogate pair is the replacement character. Kept for the next time.
    const Sign& sign(char32_t character) const {
        if (character < m_near.size() && m_nearKnown[character]) return m_near[character];
        return look(character);
    }

  private:
    const Sign& look(char32_t character) const;
    Sign find(char32_t character) const;

    QFont m_font;
    QRawFont m_raw;
    mutable std::array<Sign, 0x250> m_near;
    mutable std::array<bool, 0x250> m_nearKnown{};
    mutable std::unordered_map<char32_t, Sign> m_far;
};

class FontMeter : public TextMeter {
  protected:
    std::unique_ptr<Face> makeFace(const FontChoice& choice) override;
};

// The family that is used for a name: the metric-equal faces for the names that the lists use, in any case of
// letters; the name itself where this machine has such a family; the sans serif face for every other one.
QString pageFamily(const QString& name);
// Fault fileNotFound, naming the faces, when one that the layout of the lists relies on is missing: another
// one in its place would break every line elsewhere. Called once at start.
void requirePageFonts();
// The character at text[at], and whether it takes two units. Half of a pair is a character of its own.
struct DecodedCharacter {
    char32_t character;
    bool pair;
};
DecodedCharacter characterAt(QStringView text, qsizetype at);

} // namespace vandrel
