// What a field takes of a typed text.
#include "platform/page_letters.h"

#include "platform/code_page.h"
#include "support/test_workstation.h"

namespace vandrel::test {

using namespace Qt::StringLiterals;

TEST(PageLetters, LettersOutsideThePageBecomeTheirBaseOrAreLeftOut) {
    const struct {
        QString typed, taken, replaced, dropped;
    } cases[] = {
        {u"Árvíztűrő tükörfúrógép ŐŰ ß €–„”"_s, u"Árvíztűrő tükörfúrógép ŐŰ ß €–„”"_s, {}, {}},
        {u"Muñoz ț Ñandú"_s, u"Munoz t Nandú"_s, u"ñțÑ"_s, {}},
        {u"漢字 Kovács 😀"_s, u" Kovács "_s, {}, u"漢字😀"_s},
        {u"Bjørn æ"_s, u"Bjorn ae"_s, u"øæ"_s, {}},
        {u"e\u0301 u\u030B"_s, u"é ű"_s, {}, {}},
        {u"\uFEFFa\r\n\tb\u0000\u200E\u0085"_s, u"ab"_s, {}, {}},
        {u"?"_s, u"?"_s, {}, {}},
    };
    for (const auto& c : cases) {
        const PageLetters letters = pageLetters(c.typed);
        EXPECT_EQ(letters.text, c.taken);
        EXPECT_EQ(letters.replaced, c.replaced);
        EXPECT_EQ(letters.dropped, c.dropped);
        EXPECT_EQ(pageLettersNotice(letters).isEmpty(), letters.untouched());
    }
    EXPECT_EQ(pageLetters(u"a\n\tb"_s, LineEnds::kept).text, u"a\n\tb"_s);
}

// Whatever is typed, the report's code page can carry what the field took.
TEST(PageLetters, NothingThatIsTakenIsOutsideThePage) {
    for (char32_t code = 1; code < 0x3000; ++code) {
        const QString taken = pageLetters(QString::fromUcs4(&code, 1)).text;
        EXPECT_TRUE(code == u'?' || !code_page::fromUnicode(taken).contains('?')) << static_cast<unsigned>(code);
    }
}

} // namespace vandrel::test
