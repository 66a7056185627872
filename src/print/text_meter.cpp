#include "print/text_meter.h"

#include <algorithm>
#include <cmath>

namespace vandrel {

float usableFontSize(float size) {
    return std::isfinite(size) ? std::clamp(size, smallestFontSize, largestFontSize) : smallestFontSize;
}

Face::Face(FontChoice choice, double height, double ascent)
    : m_choice(std::move(choice)), m_height(static_cast<float>(height)), m_ascent(ascent) {
    m_near.fill(-1);
}

Face::~Face() = default;

double Face::look(char32_t character) const {
    if (character < m_near.size()) return m_near[character] = measure(character);
    const auto [place, fresh] = m_far.try_emplace(character, 0.0);
    if (fresh) place->second = measure(character);
    return place->second;
}

double Face::width(QStringView text) const {
    double sum = 0;
    for (qsizetype at = 0; at < text.size(); ++at) {
        const bool pair = text[at].isHighSurrogate() && at + 1 < text.size() && text[at + 1].isLowSurrogate();
        sum += width(pair ? QChar::surrogateToUcs4(text[at], text[at + 1]) : char32_t{text[at].unicode()});
        if (pair) ++at;
    }
    return sum;
}

TextMeter::~TextMeter() = default;

const Face& TextMeter::face(const FontChoice& choice) {
    if (m_last != nullptr && m_last->choice() == choice) return *m_last;
    // A size that is not a number has no place in an order.
    const float size = std::isfinite(choice.size) ? choice.size : 0;
    auto& face = m_faces[{choice.name, size, choice.bold, choice.italic}];
    if (!face) face = makeFace({choice.name, size, choice.bold, choice.italic});
    m_last = face.get();
    return *face;
}

} // namespace vandrel
