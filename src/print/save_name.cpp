#include "print/save_name.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace vandrel {

QString suggestedFileName(const QString& title, const QString& ending) {
    constexpr qsizetype longest = 100; // letters; no more than 255 bytes on any disk
    QString name;
    for (const QChar letter : title.simplified().left(longest)) {
        const bool refused = !letter.isPrint() || letter.isSurrogate() || u"/\\:*?\"<>|"_s.contains(letter);
        name += refused ? QChar(u'_') : letter;
    }
    while (name.size() > longest / 2 && name.toUtf8().size() > 200)
        name.chop(1);
    // A name that begins with a point is hidden, one that ends with one or a blank is refused by some disks.
    while (name.endsWith(u'.') || name.endsWith(u' '))
        name.chop(1);
    while (name.startsWith(u'.'))
        name.remove(0, 1);
    const bool named = std::any_of(name.cbegin(), name.cend(), [](QChar c) { return c.isLetterOrNumber(); });
    if (!named) name = u"dokumentum"_s;
    return name + u'.' + ending;
}

QString withEnding(const QString& path, const QString& ending) {
    return path.endsWith(u'.' + ending, Qt::CaseInsensitive) ? path : path + u'.' + ending;
}

} // namespace vandrel
