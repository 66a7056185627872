#include "platform/text_compare.h"

using namespace Qt::StringLiterals;

namespace vandrel {

QString foldCase(QStringView text) {
    return text.toString().toCaseFolded();
}

bool equalTexts(QStringView a, QStringView b) {
    return a.compare(b, Qt::CaseInsensitive) == 0;
}

bool startsWithText(QStringView text, QStringView prefix) {
    return text.startsWith(prefix, Qt::CaseInsensitive);
}

TextPattern::TextPattern(QStringView pattern) : m_folded(foldCase(pattern)) {}

bool TextPattern::matches(QStringView text) const {
    return matchesFolded(foldCase(text));
}

// Greedy matching with one point of return: linear for all patterns that people type.
bool TextPattern::matchesFolded(QStringView text) const {
    qsizetype p = 0;
    qsizetype t = 0;
    qsizetype star = -1;
    qsizetype resume = 0;
    const QStringView pattern = m_folded;
    while (t < text.size()) {
        if (p < pattern.size() && pattern[p] == '*'_L1) {
            star = p++;
            resume = t;
        } else if (p < pattern.size() &&
                   (pattern[p] == '?'_L1 || (pattern[p] == '#'_L1 && text[t].isDigit()) ||
                    (pattern[p] != '#'_L1 && pattern[p] == text[t]))) {
            ++p;
            ++t;
        } else if (star >= 0) {
            p = star + 1;
            t = ++resume;
        } else {
            return false;
        }
    }
    while (p < pattern.size() && pattern[p] == '*'_L1)
        ++p;
    return p == pattern.size();
}

} // namespace vandrel
