// Text items: their properties and units, the values of tags, page fields, and what measuring finds, on a
// paper of which 1000 twips are between the margins: ten letters a line.
#include "platform/fault.h"
#include "print/qc_printer.h"
#include "support/print_stand.h"
#include "support/test_workstation.h"

#include <gtest/gtest.h>

#include <QElapsedTimer>

using namespace Qt::StringLiterals;

namespace vandrel::test {

namespace {

struct TextItemTest : testing::Test {
    PrintStand stand{2880 + 1000, 2880 + 2400};
    qcPrinter document{stand.engine}; // settles the geometry

    qcTextItem item(const QString& text) {
        qcTextItem made(stand.engine);
        made.setScaleMode(1);
        made.setFontName(u"Arial"_s);
        made.setFontSize(10);
        made.setText(text);
        return made;
    }
};

std::vector<float> heights(const qcTextItem& item) {
    std::vector<float> all = item.LineHeights();
    all.erase(all.begin()); // counted from 1
    return all;
}

} // namespace

TEST_F(TextItemTest, StartsEmptyAndTellsWhichWritesMoveLines) {
    qcTextItem item(stand.engine);
    EXPECT_EQ(item.BorderShading(), -1);
    for (const double value :
         {double(item.FontSize()), double(item.FontColor()), double(item.Alignment()), double(item.AbsPage()),
          double(item.NewPage()), double(item.BorderLine()), double(item.BorderColor()),
          double(item.Underline()), double(item.UnderlineAll()), double(item.ScaleMode()),
          double(item.LineCount()), double(item.StartPage()), double(item.EndPage())})
        EXPECT_EQ(value, 0);
    EXPECT_FALSE(item.FontBold() || item.FontItalic() || item.FontUnderline() || item.Absolute() ||
                 item.ShowBorder() || item.UseParsedText());
    EXPECT_TRUE(item.Text().isEmpty() && item.FontName().isEmpty());
    item.setScaleMode(1);

    const struct {
        const char* name;
        bool dirty;
        std::function<void()> write;
        std::function<bool()> written;
    } properties[] = {
        {"Text", true, [&] { item.setText("a"); }, [&] { return item.Text() == "a"; }},
        {"FontName", true, [&] { item.setFontName("b"); }, [&] { return item.FontName() == "b"; }},
        {"FontSize", true, [&] { item.setFontSize(7); }, [&] { return item.FontSize() == 7; }},
        {"FontBold", true, [&] { item.setFontBold(true); }, [&] { return item.FontBold(); }},
        {"FontItalic", true, [&] { item.setFontItalic(true); }, [&] { return item.FontItalic(); }},
        {"FontUnderline", true, [&] { item.setFontUnderline(true); }, [&] { return item.FontUnderline(); }},
        {"FontColor", false, [&] { item.setFontColor(5); }, [&] { return item.FontColor() == 5; }},
        {"Alignment", false, [&] { item.setAlignment(9); }, [&] { return item.Alignment() == 9; }},
        {"IndentLeft", true, [&] { item.setIndentLeft(11); }, [&] { return item.IndentLeft() == 11; }},
        {"IndentRight", true, [&] { item.setIndentRight(12); }, [&] { return item.IndentRight() == 12; }},
        {"LineSpacing", true, [&] { item.setLineSpacing(13); }, [&] { return item.LineSpacing() == 13; }},
        {"MaxHeight", true, [&] { item.setMaxHeight(14); }, [&] { return item.MaxHeight() == 14; }},
        {"Absolute", true, [&] { item.setAbsolute(true); }, [&] { return item.Absolute(); }},
        {"AbsPage", false, [&] { item.setAbsPage(-1); }, [&] { return item.AbsPage() == -1; }},
        {"Left", false, [&] { item.setLeft(15); }, [&] { return item.Left() == 15; }},
        {"Top", true, [&] { item.setTop(16); }, [&] { return item.Top() == 16; }},
        {"NewPage", true, [&] { item.setNewPage(3); }, [&] { return item.NewPage() == 3; }},
        {"ShowBorder", false, [&] { item.setShowBorder(true); }, [&] { return item.ShowBorder(); }},
        {"BorderLine", false, [&] { item.setBorderLine(-2); }, [&] { return item.BorderLine() == -2; }},
        {"BorderColor", false, [&] { item.setBorderColor(3); }, [&] { return item.BorderColor() == 3; }},
        {"BorderShading", false, [&] { item.setBorderShading(4); },
         [&] { return item.BorderShading() == 4; }},
        {"Underline", false, [&] { item.setUnderline(5); }, [&] { return item.Underline() == 5; }},
        {"UnderlineAll", false, [&] { item.setUnderlineAll(6); }, [&] { return item.UnderlineAll() == 6; }},
        {"ScaleMode", false, [&] { item.setScaleMode(5); }, [&] { return item.ScaleMode() == 5; }},
    };
    for (const auto& property : properties) {
        const qcTextItem before = item; // shares its look until the write
        stand.engine.NeedsPaging = false;
        property.write();
        EXPECT_EQ(stand.engine.NeedsPaging, property.dirty) << property.name;
        EXPECT_TRUE(property.written()) << property.name;
    }
}

TEST_F(TextItemTest, LengthsAreKeptInTwips) {
    const PaperSize paper = stand.engine.printer.size();
    const struct {
        long mode;
        double horizontal, vertical; // of 10 units
    } units[] = {{1, 10, 10},    {5, 14400, 14400}, {6, 567, 567}, {7, 5670, 5670},
                 {11, 388, 528}, {0, 0, 0},         {2, 0, 0},     {-1, 0, 0}};
    for (const auto& unit : units) {
        EXPECT_NEAR(toTwips(10, unit.mode, Axis::horizontal, paper), unit.horizontal, 1e-9) << unit.mode;
        EXPECT_NEAR(toTwips(10, unit.mode, Axis::vertical, paper), unit.vertical, 1e-9) << unit.mode;
        EXPECT_NEAR(fromTwips(unit.vertical, unit.mode, Axis::vertical, paper), unit.vertical == 0 ? 0 : 10,
                    1e-9);
        qcTextItem one = item({});
        one.setScaleMode(unit.mode);
        one.setIndentLeft(10);
        one.setTop(10);
        one.setScaleMode(1); // changes the unit, not the twips
        EXPECT_NEAR(one.IndentLeft(), unit.horizontal, 1e-3) << unit.mode;
        EXPECT_NEAR(one.Top(), unit.vertical, 1e-3) << unit.mode;
    }
    EXPECT_EQ(fromTwips(1440, 99, Axis::horizontal, paper), 0);
    qcTextItem tab = item("<LINDENT=10>aaaaa");
    tab.setScaleMode(6); // 567 twips: four letters are left room for
    tab.GetSize();
    EXPECT_EQ(tab.LineCount(), 2);
    EXPECT_NEAR(tab.Width(), 433 / 56.7, 1e-3);
    EXPECT_NEAR(tab.Height(), 480 / 56.7, 1e-3);
}

TEST_F(TextItemTest, ValuesOfTagsAndFields) {
    const struct {
        const char* tag;
        const char* value;
    } tags[] = {{"SIZE=12.5", "12.5"},
                {"SIZE", ""},
                {"SIZE=", ""},
                {"FONT=a=b", "a=b"},
                {"COLOR=#FF0000", "255"},
                {"color=#0000ff", "16711680"},
                {"COLOR=#0080FF", "16744448"},
                {"COLOR=#FF00", "0"},
                {"COLOR=#FF00000", "0"},
                {"COLOR=#GG0000", "0"},
                {"COLOR=# FF000", "0"},
                {"COLOR=#", "0"},
                {"FONT=#ABCDEF", "15715755"}};
    for (const auto& tag : tags)
        EXPECT_EQ(qcTextItem::GetTagValue(QString::fromLatin1(tag.tag)), QLatin1StringView(tag.value))
            << tag.tag;

    qcTextItem head = item("#pagenumber#/#pagetotal# #longdate# #shortdate# #longtime# #shorttime# #appname# "
                           "#PageNumber# #date# #pagenumber#");
    head.ParseFields(3, 12, "J\u00e1r\u00f3beteg #pagenumber#");
    EXPECT_EQ(head.ParsedText(), "3/12 2008. \u00e1prilis 3. 2008.04.03. 14:05:09 14:05 "
                                 "J\u00e1r\u00f3beteg #pagenumber# #PageNumber# #date# 3");
    qcTextItem body = item("#appname#"); // a body item prints its fields as they are
    body.ParseFields(3, 12, "a");
    body.GetSize();
    EXPECT_EQ(body.Width(), 950); // with a wide m
}

TEST_F(TextItemTest, Measures) {
    const struct {
        const char* text;
        std::vector<float> heights;
        float width;
    } cases[] = {
        {"", {}, 0},
        {" ", {240}, 100},
        {"aaaa bbbb", {240}, 900},
        {"aaaaaaaaaa", {240}, 1000},       // exactly full
        {"aaaaaaaaaa ", {240}, 1000},      // a blank is never asked; the width is cut
        {"aaaaaaaaaaa", {240, 240}, 1000}, // a word wider than the line is cut
        {"aaaaaaaaa i", {240, 240}, 1000},
        {"aaaaaaaaali", {240}, 1000}, // two narrow letters in the place of one
        {"aaaa bbbbbb", {240, 240}, 1000},
        {"aaaaaaaaa-b", {240, 240}, 1000},
        {"aaaaaaaaaa-b", {240, 240}, 1000},
        {"\U0001F600\U0001F600", {240}, 400},
        {"\x01\t\x7f", {240}, 300},
        // Line ends.
        {"a\n", {240}, 100},
        {"a\r\n", {240}, 100},
        {"a\nb", {240, 240}, 1000},
        {"a\rb", {240, 240}, 1000},
        {"a\n\rb", {240, 240, 240}, 1000},
        {"a\n\n", {240, 240}, 1000},
        {"a <SIZE=20>\n\n</SIZE>b", {240, 480, 240}, 1000},
        // No tags.
        {"<", {240}, 100},
        {"a<b", {240}, 300},
        {"<Q>", {240}, 300},
        {"</X>", {240}, 400},
        {"<>", {240}, 200},
        {"</LINDENT=3>", {240, 240}, 1000},
        // Tags.
        {"<unknown>", {240}, 0},
        {"a<b>a</B>a", {240}, 320},
        {"<i>a</i><U>a</u>", {240}, 200},
        {"<font=Courier New>a</FONT>a", {240}, 220},
        {"<SIZE=20>a", {480}, 200},
        {"<SIZE=12.5>a", {300}, 125},
        {"<SIZE=0>a<SIZE=abc>a<SIZE=-5>a", {24}, 30}, // the smallest there is
        {"<SIZE=999>a", {23976, 23976}, 1000},
        {"<COLOR=none><ALIGN=none>a", {240}, 100},
        {"<a<B>a", {240}, 100}, // one long unknown tag
        // Indents and forced ends: one line, and its width is the last segment's.
        {"a<LINDENT=300>b</LINDENT><LINDENT=600>cc", {240}, 200},
        {"<LINDENT=500>aaaaaa", {240, 240}, 500},
        {"<RINDENT=500>aaaaaa</RINDENT>", {240, 240}, 1000},
        {"<LINDENT=500>aaaaaa</LINDENT>aaaa", {240, 240}, 1000},
        {"<LINDENT=500>aa</LINDENT>aaaaaaaa", {240}, 1000}, // the width changes at once
        {"aaaaaaaa<FORCED>aaaaaaaa", {240}, 800},
        {"abc<FORCE>", {}, 0},                        // nothing follows that would end the line
        {"<FORCE><SIZE=5>a", {240}, 50},              // the forced end has brought the base font's height in
        {"<LINDENT=2000>aa", {240, 240, 240}, -1000}, // no letter fits: the first line is empty
        // A word that goes on on the next line leaves its height behind.
        {"aaaaaaaaa <SIZE=20>b</SIZE>", {480, 240}, 1000},
        {"aaaaaaaaa <SIZE=20>b</SIZE>c", {480, 240}, 1000},
    };
    for (const auto& told : cases) {
        qcTextItem one = item(QString::fromUtf8(told.text));
        one.GetSize();
        EXPECT_EQ(heights(one), told.heights) << told.text;
        EXPECT_EQ(one.LineCount(), static_cast<int>(told.heights.size())) << told.text;
        EXPECT_EQ(one.Width(), told.width) << told.text;
    }
}

TEST_F(TextItemTest, SpacingBoxTopAndTheWidthThatNeverResets) {
    qcTextItem one = item("a\nb");
    one.setTop(500);
    one.setLineSpacing(10);
    one.setShowBorder(true);
    one.setBorderLine(5);
    one.GetSize();
    EXPECT_EQ(heights(one), (std::vector<float>{250, 262})); // 5 pixels of 2.4 twips in the last line only
    EXPECT_EQ(one.Height(), 1000);                           // and not in the height
    EXPECT_EQ(one.DefaultLineHeight(), 250);
    one.setAbsolute(true);
    one.GetSize();
    EXPECT_EQ(one.Height(), 500); // Top is a place here

    qcTextItem width = item("aaaaaaaa");
    width.GetSize();
    width.setText("a");
    width.GetSize();
    EXPECT_EQ(width.Width(), 800); // of the longer text
    width.setIndentRight(700);
    width.GetSize();
    EXPECT_EQ(width.Width(), 300);
    width.setIndentRight(0);
    width.GetSize();
    EXPECT_EQ(width.Width(), 300);
    width.setIndentLeft(1000); // no room: nothing is measured
    width.setText("aaaaaaaa\n");
    width.GetSize();
    EXPECT_EQ(width.Width(), 300);
    EXPECT_EQ(width.LineCount(), 1);
    EXPECT_EQ(width.Height(), 240);
}

TEST_F(TextItemTest, AMillionLettersTakeNoTime) {
    const auto many = [](const char* piece) {
        return QString::fromLatin1(piece).repeated(1'000'000 / static_cast<int>(qstrlen(piece)));
    };
    const struct {
        QString text;
        int lines;
    } cases[] = {
        {many("a"), 100'000},       {many("a "), 100'000}, // the blank after the fifth letter hangs over
        {many("</"), 100'000},      {many("<"), 100'000},    {many("</") + ">", 100'001},
        {many("<B>a</B>"), 15'625}, // eight bold letters and no more
        {many("<B"), 100'000},      {many("\n"), 1'000'000}, {many("<LINDENT=1>a"), 1}};
    for (const auto& told : cases) {
        QElapsedTimer timer;
        timer.start();
        document.ResetItems();
        document.AddText(told.text, {"Arial"});
        EXPECT_EQ(document.TextItem().Item(1).LineCount(), told.lines) << told.text.left(10).toStdString();
        const int pages = document.Pages();
        EXPECT_EQ(pages, (told.lines + 9) / 10) << told.text.left(10).toStdString();
        for (const int page : {1, pages / 2 + 1, pages}) {
            RecordingPage drawn;
            document.PreviewPage(drawn, page);
            EXPECT_EQ(drawn.isEmpty(), told.text[0] == u'\n') << told.text.left(10).toStdString();
        }
        EXPECT_LT(timer.elapsed(), 5000) << told.text.left(10).toStdString();
    }
}

} // namespace vandrel::test
