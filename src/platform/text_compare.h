// How texts compare all over the program: without regard to case, Hungarian letters included ("ő" finds "Ő");
// accents do distinguish.
#pragma once

#include <QString>

namespace vandrel {

QString foldCase(QStringView text);
bool equalTexts(QStringView a, QStringView b);
bool startsWithText(QStringView text, QStringView prefix);

// The pattern of the searching routines: * any run of characters, ? one character, # one digit, the rest
// itself. Without wildcards it must equal the whole text. Built once, asked for thousands of rows.
class TextPattern {
  public:
    explicit TextPattern(QStringView pattern);
    bool matches(QStringView text) const; // folds the text
    bool matchesFolded(QStringView foldedText) const;

  private:
    QString m_folded;
};

} // namespace vandrel
