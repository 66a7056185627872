// The widths and heights by which every text is laid out, in twips. Layout asks a TextMeter and nothing else,
// so that paper, preview and PDF break lines at the same characters. Knows no printer and no screen.
#pragma once

#include <QString>

#include <array>
#include <map>
#include <memory>

namespace vandrel {

// A font as the mark-up names it. Size in points; what is no size (0, negative, not a number) and what is
// beyond the limits is measured and painted at the nearest limit, so that no text vanishes.
struct FontChoice {
    QString name;
    float size = 0;
    bool bold = false;
    bool italic = false;

    bool operator==(const FontChoice&) const = default;
};

inline constexpr float smallestFontSize = 1;
inline constexpr float largestFontSize = 2160;
float usableFontSize(float size);

// The metrics of one font, each width asked once and kept. A line's width is the sum of its characters'
// widths: there is no kerning and there are no ligatures.
class Face {
  public:
    Face(FontChoice choice, double height, double ascent);
    virtual ~Face();
    Face(const Face&) = delete;
    Face& operator=(const Face&) = delete;

    const FontChoice& choice() const { return m_choice; }
    double height() const { return m_height; } // of a line in this font; single precision, as lines keep it
    double ascent() const { return m_ascent; } // from the line's top down to the base line
    double width(char32_t character) const {
        if (character < m_near.size() && m_near[character] >= 0) return m_near[character];
        return look(character);
    }
    double width(QStringView text) const; // a surrogate pair is one character

  protected:
    // Width of one character; asked once for each. Must be finite and not negative.
    virtual double measure(char32_t character) const = 0;

  private:
    double look(char32_t character) const;

    FontChoice m_choice;
    double m_height;
    double m_ascent;
    mutable std::array<double, 0x250> m_near; // Latin letters; -1: not asked yet
    mutable std::map<char32_t, double> m_far;
};

class TextMeter {
  public:
    virtual ~TextMeter();

    // The face of a font; lives as long as the meter.
    const Face& face(const FontChoice& choice);

  protected:
    virtual std::unique_ptr<Face> makeFace(const FontChoice& choice) = 0;

  private:
    const Face* m_last = nullptr; // most texts are in the font of the one before
    std::map<std::tuple<QString, float, bool, bool>, std::unique_ptr<Face>> m_faces;
};

} // namespace vandrel
