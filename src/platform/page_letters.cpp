#include "platform/page_letters.h"

#include "platform/code_page.h"

#include <algorithm>
#include <iterator>

using namespace Qt::StringLiterals;

namespace vandrel {

namespace {

bool inPage(QStringView letter) {
    return letter == u'?' || code_page::fromUnicode(letter) != "?";
}

// Letters that Unicode does not take apart.
struct BaseLetter {
    char16_t letter;
    const char16_t* base;
};
constexpr BaseLetter baseLetters[] = {{u'ø', u"o"},  {u'Ø', u"O"},  {u'ı', u"i"},  {u'ħ', u"h"},
                                      {u'Ħ', u"H"},  {u'ŧ', u"t"},  {u'Ŧ', u"T"},  {u'æ', u"ae"},
                                      {u'Æ', u"AE"}, {u'œ', u"oe"}, {u'Œ', u"OE"}, {u'ð', u"d"},
                                      {u'Ð', u"D"},  {u'þ', u"th"}, {u'Þ', u"TH"}};

// Empty when the letter has none in the page.
QString baseOf(const QString& letter) {
    const auto known = std::ranges::find_if(
        baseLetters, [&](const BaseLetter& base) { return letter == QChar(base.letter); });
    if (known != std::end(baseLetters)) return QString::fromUtf16(known->base);
    const QString parts = letter.normalized(QString::NormalizationForm_KD);
    const QString base = parts.left(parts.isEmpty() || !parts[0].isHighSurrogate() ? 1 : 2);
    const bool fits = base != letter && !base.isEmpty() && base[0].isLetterOrNumber() && inPage(base);
    return fits ? base : QString();
}

void note(QString& letters, const QString& letter) {
    if (!letters.contains(letter)) letters += letter;
}

} // namespace

PageLetters pageLetters(const QString& typed, LineEnds lineEnds) {
    PageLetters result;
    // A letter and the accent after it are one letter of the page.
    const QString text = typed.normalized(QString::NormalizationForm_C);
    for (qsizetype i = 0; i < text.size(); ++i) {
        const qsizetype length =
            text[i].isHighSurrogate() && i + 1 < text.size() && text[i + 1].isLowSurrogate() ? 2 : 1;
        const QString letter = text.mid(i, length);
        i += length - 1;
        if (lineEnds == LineEnds::kept && (letter == u'\n' || letter == u'\t')) {
            result.text += letter;
            continue;
        }
        const QChar::Category category = letter[0].category();
        if (category == QChar::Other_Control || category == QChar::Other_Format) continue;
        if (inPage(letter)) {
            result.text += letter;
            continue;
        }
        const QString base = baseOf(letter);
        result.text += base;
        note(base.isEmpty() ? result.dropped : result.replaced, letter);
    }
    return result;
}

QString pageLettersNotice(const PageLetters& letters) {
    QString notice;
    if (!letters.replaced.isEmpty())
        notice = u"Nem írható betű, az alapbetűje került be: %1"_s.arg(letters.replaced.left(20));
    if (!letters.dropped.isEmpty())
        notice += (notice.isEmpty() ? QString() : u"  "_s) +
                  u"Nem írható be, kimaradt: %1"_s.arg(letters.dropped.left(20));
    return notice;
}

} // namespace vandrel
