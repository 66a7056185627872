// What of a typed or pasted text the program's fields take: the letters of windows-1250, which the clinics'
// data have always been written in and which alone a report can carry.
#pragma once

#include <QString>

namespace vandrel {

struct PageLetters {
    QString text;     // what the field takes
    QString replaced; // letters that became their base letter, as typed, each once
    QString dropped;  // those that have none, each once; control characters go without a word
    bool untouched() const { return replaced.isEmpty() && dropped.isEmpty(); }
};

// A letter outside the page becomes its base letter (ñ: n, ț: t), one without a base letter is left out, and
// so are U+FEFF and all control characters but, where lines are allowed, line ends and tabs.
enum class LineEnds { none, kept };
PageLetters pageLetters(const QString& typed, LineEnds lineEnds = LineEnds::none);

// The same in a sentence for the status line; empty when every letter was taken as it is.
QString pageLettersNotice(const PageLetters& letters);

} // namespace vandrel
