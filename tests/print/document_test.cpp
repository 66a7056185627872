// Documents: margins and slots, pagination, what is drawn where, and printing. The paper is 3880 x 5280 twips
// with margins of 1440: ten letters a line, ten lines a page, the upper left letter at 1440,1440.
#include "platform/fault.h"
#include "print/literal_text.h"
#include "print/qc_printer.h"
#include "support/print_stand.h"
#include "support/test_workstation.h"

#include <gtest/gtest.h>

#include <random>

using namespace Qt::StringLiterals;

namespace vandrel::test {

namespace {

StandPrinter smallPrinter(const char* name) {
    return standPrinter(QString::fromLatin1(name), 3880, 5280);
}

struct DocumentTest : testing::Test {
    PrintStand stand{{smallPrinter("A"), smallPrinter("B"), smallPrinter("C")}};
    qcPrinter document{stand.engine};
    TextLook arial{"Arial"};

    qcTextItem& add(const QString& text) {
        document.AddText(text, arial);
        return document.TextItem().Item(document.ItemCount());
    }
    qcTextItem& addLines(int lines) { return add(u"a\n"_s.repeated(lines)); }
    QStringList page(int number) {
        RecordingPage drawn;
        document.PreviewPage(drawn, number);
        return drawn.stretches();
    }
    // Texts of all pages, without their places.
    QStringList texts() {
        QStringList all;
        for (int number = 1; number <= document.Pages(); ++number) {
            RecordingPage drawn;
            document.PreviewPage(drawn, number);
            all << drawn.allText();
        }
        return all;
    }
    QStringList printed(std::size_t job) const {
        QStringList all;
        for (const RecordingPage& drawn : stand.printers.jobs.at(job)->pages)
            all << drawn.allText();
        return all;
    }
};

} // namespace

TEST_F(DocumentTest, StartsWithDefaultsAndTellsWhichWritesMoveLines) {
    EXPECT_EQ(document.ScaleMode(), 1);
    EXPECT_EQ(document.MarginTop(), 1440);
    EXPECT_EQ(document.PageSize(), 9);
    EXPECT_EQ(document.Orientation(), 1);
    EXPECT_TRUE(document.OrientOkay());
    EXPECT_EQ(document.PrintOptions(), 3);
    EXPECT_EQ(document.Pages(), 1); // also an empty one has a page
    EXPECT_FALSE(stand.engine.NeedsPaging);
    EXPECT_EQ(document.previewPlacement().state, -1);
    for (int slot = 0; slot < 5; ++slot) {
        EXPECT_EQ(document.Header(slot).FontName(), "Arial");
        EXPECT_EQ(document.Footer(slot).FontSize(), 10);
        EXPECT_TRUE(document.Footer(slot).UseParsedText());
        EXPECT_FALSE(document.SetHeader(slot) || document.SetFooter(slot));
    }
    for (const int slot : {-1, 5}) {
        EXPECT_EQ(faultNumberOf([&] { document.setSetHeader(slot, true); }), fault::subscript);
        EXPECT_EQ(faultNumberOf([&] { document.Footer(slot).Text(); }), fault::subscript);
    }
    const qcTextItem other = document.Header(1);
    const struct {
        const char* name;
        bool dirty;
        std::function<void()> write;
    } writes[] = {
        {"ScaleMode", false, [&] { document.setScaleMode(6); }},
        {"MarginLeft", true, [&] { document.setMarginLeft(20); }},
        {"MarginLeft again", false, [&] { document.setMarginLeft(20); }},
        {"MarginBottom", true, [&] { document.setMarginBottom(20); }},
        {"PageSize", true, [&] { document.setPageSize(8); }},
        {"PageSize again", false, [&] { document.setPageSize(8); }},
        {"Orientation", true, [&] { document.setOrientation(2); }},
        {"Orientation again", false, [&] { document.setOrientation(2); }},
        {"AppName", false, [&] { document.setAppName("a"); }},
        {"PrintOptions", false, [&] { document.setPrintOptions(0); }},
        {"SetHeader", false, [&] { document.setSetHeader(1, true); }},
        {"Header", true, [&] { document.setHeader(1, other); }},
        {"Footer", true, [&] { document.setFooter(1, other); }},
        {"HeaderCopy", true, [&] { document.HeaderCopy(1, 2); }},
        {"FooterCopy", true, [&] { document.FooterCopy(1, 2); }},
        {"AddText", true, [&] { add("a"); }},
        {"RemoveItem, none", true, [&] { document.RemoveItem("no such key"); }},
        {"RemoveItem, no place", true, [&] { document.RemoveItem(7); }},
        {"TextItem", true, [&] { document.setTextItem({}); }},
        {"ResetItems", true, [&] { document.ResetItems(); }},
    };
    for (const auto& write : writes) {
        stand.engine.NeedsPaging = false;
        write.write();
        EXPECT_EQ(stand.engine.NeedsPaging, write.dirty) << write.name;
    }
    EXPECT_EQ(stand.engine.printer.size(), (PaperSize{5280, 3880})); // turned
}

TEST_F(DocumentTest, ItemsSlotsAndUnits) {
    document.AddText("a", arial, "first");
    document.AddText("b", {"Arial", 8, true, true, true, 7, 2, 10, 20}, "Second");
    EXPECT_EQ(faultNumberOf([&] { document.AddText("c", arial, "SECOND"); }), 457);
    EXPECT_EQ(faultNumberOf([&] { document.TextItem().Item("third"); }), fault::invalidCall);
    EXPECT_EQ(faultNumberOf([&] { document.TextItem().Item(0); }), fault::subscript);
    qcTextItem& second = document.TextItem().Item("second");
    EXPECT_TRUE(second.FontBold() && second.FontItalic() && second.FontUnderline());
    EXPECT_EQ(second.FontColor() + second.Alignment(), 9);
    document.setScaleMode(6);
    EXPECT_NEAR(document.MarginLeft(), 1440 / 56.7, 1e-4);
    EXPECT_NEAR(second.IndentRight(), 20 / 56.7, 1e-4);
    EXPECT_EQ(document.Footer(4).ScaleMode(), 6);
    document.RemoveItem("first");
    EXPECT_EQ(document.ItemCount(), 1);
    EXPECT_EQ(document.TextItem().Item("second").Text(), "b");

    qcTextItem& head = document.Header(3);
    head.setText("t");
    head.setFontName("Courier");
    head.setFontSize(7);
    head.setFontBold(true);
    head.setFontItalic(true);
    head.setFontUnderline(true);
    head.setFontColor(1);
    head.setIndentLeft(2);
    head.setIndentRight(3);
    head.setAlignment(2);
    head.setBorderColor(4);
    head.setBorderShading(5);
    head.setBorderLine(6);
    head.setShowBorder(true);
    head.setScaleMode(7);
    head.setLineSpacing(1); // these are not copied
    head.setTop(1);
    head.setUnderline(1);
    head.setUnderlineAll(1);
    head.setNewPage(1);
    document.HeaderCopy(3, 2);
    document.setSetHeader(2, true);
    const qcTextItem& copy = document.Header(2);
    EXPECT_EQ(copy.Text() + copy.FontName(), "tCourier");
    EXPECT_TRUE(copy.FontBold() && copy.FontItalic() && copy.FontUnderline() && copy.ShowBorder());
    EXPECT_EQ(
        std::vector<long>({long(copy.FontSize()), copy.FontColor(), copy.Alignment(), copy.BorderColor(),
                           copy.BorderShading(), copy.BorderLine(), copy.ScaleMode()}),
        std::vector<long>({7, 1, 2, 4, 5, 6, 7}));
    EXPECT_EQ(copy.IndentLeft(), head.IndentLeft());
    EXPECT_EQ(copy.IndentRight(), head.IndentRight());
    EXPECT_EQ(copy.LineSpacing() + copy.Top() + float(copy.Underline() + copy.UnderlineAll()), 0);
    EXPECT_EQ(copy.NewPage(), 0);

    document.ResetItems();
    EXPECT_EQ(document.ItemCount(), 0);
    EXPECT_TRUE(document.Header(2).Text().isEmpty());
    EXPECT_EQ(document.Header(2).ScaleMode(), 6);
    EXPECT_TRUE(document.SetHeader(2)); // stays in use
}

TEST_F(DocumentTest, LaterRulesChooseTheSlot) {
    const struct {
        std::vector<int> inUse;
        int pages;
        QString slots_; // of each page; "-": none
    } cases[] = {{{}, 2, "--"},          {{4}, 3, "444"},     {{2, 3}, 4, "2323"},
                 {{0, 2, 3}, 4, "0323"}, {{3, 4}, 4, "4343"}, {{2, 4}, 4, "2424"},
                 {{0, 1}, 1, "1"},       {{1, 4}, 3, "441"},  {{0, 1, 2, 3, 4}, 4, "0321"},
                 {{0}, 2, "0-"},         {{1}, 2, "-1"}};
    for (const auto& told : cases) {
        document.ResetItems();
        for (int slot = 0; slot < 5; ++slot) {
            document.Header(slot).setText(QString::number(slot));
            document.Footer(slot).setText("f" + QString::number(slot) + "/#pagetotal#");
            const bool used = std::count(told.inUse.begin(), told.inUse.end(), slot) > 0;
            document.setSetHeader(slot, used);
            document.setSetFooter(slot, used);
        }
        for (int page = 1; page <= told.pages; ++page)
            add("x").setNewPage(page > 1 ? 1 : 0);
        ASSERT_EQ(document.Pages(), told.pages);
        for (int page = 1; page <= told.pages; ++page) {
            const QString slot = told.slots_.mid(page - 1, 1);
            RecordingPage drawn;
            document.PreviewPage(drawn, page);
            EXPECT_EQ(drawn.allText(),
                      slot == "-" ? "x" : slot + "xf" + slot + "/" + QString::number(told.pages));
            if (slot == "-") continue;
            EXPECT_EQ(drawn.stretches(),
                      (QStringList{"1440,1440 " + slot, "1440,1680 x",
                                   "1440,3600 f" + slot + "/" + QString::number(told.pages)}));
        }
    }
}

TEST_F(DocumentTest, Paginates) {
    struct Block {
        int lines;
        float top = 0;
        long newPage = 0;
        int startPage = 0, endPage = 0;
        float start = 0, end = 0;
    };
    const struct {
        const char* name;
        std::vector<Block> blocks;
        int pages;
    } cases[] = {
        {"exactly full", {{10, 0, 0, 1, 1, 0, 2400}}, 1},
        {"a line too many", {{11, 0, 0, 1, 2, 0, 240}}, 2},
        {"a twip too many", {{10, 1, 0, 1, 2, 0, 240}}, 2},
        {"moves as a whole", {{10, 0, 0, 1, 1, 0, 2400}, {2, 0, 0, 2, 2, 0, 480}}, 2},
        {"splits between lines", {{9, 0, 0, 1, 1, 0, 2160}, {2, 0, 0, 1, 2, 2160, 240}}, 2},
        {"a gap at the foot is lost", {{9, 0, 0, 1, 1, 0, 2160}, {1, 200, 0, 2, 2, 0, 240}}, 2},
        {"no lines", {{9, 0, 0, 1, 1, 0, 2160}, {0, 0, 0, 0, 1, 2160, 2160}}, 1},
        {"break before", {{1, 0, 1, 2, 2, 0, 240}}, 2},
        {"break behind", {{1, 0, 2, 1, 1, 0, 240}}, 2},
        {"a page of its own", {{1, 0, 0, 1, 1, 0, 240}, {1, 0, 3, 2, 2, 0, 240}, {1, 0, 0, 3, 3, 0, 240}}, 3},
        {"higher than the paper", {{1, 9000, 0, 2, 2, 0, 240}}, 2},
    };
    for (const auto& told : cases) {
        document.ResetItems();
        for (const Block& block : told.blocks) {
            qcTextItem& item = addLines(block.lines);
            item.setTop(block.top);
            item.setNewPage(block.newPage);
        }
        EXPECT_EQ(document.Pages(), told.pages) << told.name;
        for (int index = 1; index <= document.ItemCount(); ++index) {
            const qcTextItem& item = document.TextItem().Item(index);
            const Block& block = told.blocks[static_cast<std::size_t>(index - 1)];
            EXPECT_EQ(item.StartPage(), block.startPage) << told.name;
            EXPECT_EQ(item.EndPage(), block.endPage) << told.name;
            EXPECT_EQ(item.PositionStart(), block.start) << told.name;
            EXPECT_EQ(item.PositionEnd(), block.end) << told.name;
        }
    }
    document.ResetItems();
    for (const int absPage : {2, 5, -1, 3}) {
        qcTextItem& item = addLines(20); // takes no part in the flow
        item.setAbsolute(true);
        item.setAbsPage(absPage);
        item.setNewPage(3);
    }
    EXPECT_EQ(document.Pages(), 5);
}

TEST_F(DocumentTest, HeadersOfTurnedPagesCountOnlyForTheLastItem) {
    document.Header(3).setText("1\n2\n3\n4\n5"); // even pages: half the page
    document.setSetHeader(3, true);
    addLines(20);
    addLines(1); // the last one: page 2's header is looked at
    EXPECT_EQ(document.Pages(), 3);
    EXPECT_EQ(document.TextItem().Item(1).EndPage(), 2); // Deliberate: taken for as high as page 1
    EXPECT_EQ(document.TextItem().Item(1).PositionEnd(), 10 * 240);
    EXPECT_EQ(document.TextItem().Item(2).StartPage(), 3);
    EXPECT_EQ(page(2).size(), 5 + 5);
    // The last page's footer has to have room beside what is left of the last item.
    document.ResetItems();
    document.setSetHeader(3, false);
    document.Footer(1).setText("a\nb\nc");
    document.setSetFooter(1, true);
    addLines(7);
    EXPECT_EQ(document.Pages(), 1);
    EXPECT_EQ(page(1).size(), 10);
    document.ResetItems();
    document.Footer(1).setText("a\nb\nc");
    addLines(8);
    // Higher than what the footer leaves: paginated without it, and the footer gets a page of its own.
    EXPECT_EQ(document.Pages(), 2);
    EXPECT_EQ(document.TextItem().Item(1).PositionEnd(), 8 * 240);
    EXPECT_EQ(page(1).size(), 8);
    EXPECT_EQ(page(2).size(), 3);
}

TEST_F(DocumentTest, DrawsSegmentsWhereTheyBelong) {
    const struct {
        const char* text;
        long alignment;
        QStringList drawn;
    } cases[] = {
        {"<LINDENT=100>ab</LINDENT><LINDENT=600>cd\nef", 0, {"1540,1440 ab", "2040,1440 cd", "2040,1680 ef"}},
        {"a<RINDENT=500>bbbb bbbb", 0, {"1440,1440 a", "1440,1440 bbbb", "1440,1680 bbbb"}},
        {"a\n<B>b</B>c", 0, {"1440,1440 a", "1440,1680 bc"}},
        {"ab", 1, {"1840,1440 ab"}},
        {"ab", 2, {"2240,1440 ab"}},
        {"ab ", 2, {"2140,1440 ab"}}, // the blank has its place
        // The tags' indents do not move a right-aligned segment, and a centred one only by half.
        {"<LINDENT=300>ab", 2, {"2240,1440 ab"}},
        {"<RINDENT=300>ab", 2, {"2240,1440 ab"}},
        {"<LINDENT=300>ab", 1, {"1690,1440 ab"}},
        {"ab<FORCE><ALIGN=RIGHT>cd", 0, {"1440,1440 ab", "2240,1440 cd"}},
        {"ab<ALIGN=right>cd", 0, {"2040,1440 abcd"}}, // in force at the segment's end
        {"ab\n<ALIGN=CENTRE>cd\n</ALIGN>ef", 0, {"1440,1440 ab", "1840,1680 cd", "1440,1920 ef"}},
        {"aaaaa <ALIGN=RIGHT>bbbbbb", 0, {"1440,1440 aaaaa", "1840,1680 bbbbbb"}},
        {"ab <ALIGN=MIDDLE>cd", 0, {"1440,1440 ab cd"}},
        // A closed indent stays in force until the next forced end.
        {"<LINDENT=500>a</LINDENT>b\nc<FORCE>d", 0, {"1940,1440 ab", "1940,1680 c", "1440,1680 d"}},
        // Justified: a paragraph's end and a forced end are not stretched.
        {"aaa bbb\nc<FORCE>d", 3, {"1440,1440 aaa bbb", "1440,1680 c", "1440,1680 d"}},
        {"#pagenumber#", 0, {"1440,1440 #pagenumb", "1440,1680 er#"}},
    };
    for (const auto& told : cases) {
        document.ResetItems();
        add(told.text).setAlignment(told.alignment);
        EXPECT_EQ(page(1), told.drawn) << told.text;
    }
}

TEST_F(DocumentTest, StretchesBetweenLettersWhereBlanksDoNotDo) {
    const auto xs = [&](const char* text) {
        document.ResetItems();
        add(QString::fromLatin1(text)).setAlignment(3);
        RecordingPage drawn;
        document.PreviewPage(drawn, 1);
        std::vector<double> all;
        for (const auto& one : drawn.characters())
            if (one.y == 1440) all.push_back(one.x - 1440);
        return all;
    };
    // Room 1000, width 500 with the blank after it: the excess of 500 is more than three blanks.
    // Five letters and blanks, none of the blanks within: 500 / (5 - 1) each, thrice after a blank.
    EXPECT_EQ(xs("aaaa bbbbbbb"), (std::vector<double>{0, 225, 450, 675, 900}));
    // One blank within, width 600: 400 / 1 is more than 300, so 400 / (6 - 1 + 2) between letters.
    const double extra = 400.0 / 7;
    const std::vector<double> wide = xs("aaa a bbbbbb");
    ASSERT_EQ(wide.size(), 6u);
    EXPECT_NEAR(wide[3], 300 + 3 * extra, 1e-9);
    EXPECT_NEAR(wide[4], 400 + 6 * extra, 1e-9);
    EXPECT_NEAR(wide[5], 500 + 7 * extra, 1e-9);
    // 300 / 1 is not more than three blanks: the blanks alone, also the one at the end.
    EXPECT_EQ(xs("aaaa a bbbbbb"), (std::vector<double>{0, 100, 200, 300, 400, 800, 900}));
    EXPECT_EQ(xs("aaaaaaaaaaa"), (std::vector<double>{0, 100, 200, 300, 400, 500, 600, 700, 800, 900}));
}

TEST_F(DocumentTest, FontsColoursAndIndentsGoOnOnTheNextPage) {
    add("<B><SIZE=5>\n</SIZE><COLOR=#0000FF><U><LINDENT=200><ALIGN=RIGHT>" + u"a\n"_s.repeated(12) +
        "</LINDENT><FONT=Courier New>z");
    RecordingPage drawn;
    document.PreviewPage(drawn, 2);
    ASSERT_EQ(drawn.texts.size(), 4u);
    for (const auto& text : drawn.texts) {
        EXPECT_TRUE(text.font.bold && text.underline);
        EXPECT_EQ(text.color, 16711680);
        EXPECT_EQ(text.font.size, 10);
    }
    EXPECT_EQ(drawn.texts[3].font.name, "Courier New");
    EXPECT_EQ(drawn.stretches(), (QStringList{"2320,1440 a", "2320,1680 a", "2320,1920 a", "2296,2160 z"}));
}

TEST_F(DocumentTest, BoxesRulesAndAbsoluteItems) {
    qcTextItem& box = add("a\nb");
    box.setIndentLeft(100);
    box.setTop(60);
    box.setShowBorder(true);
    box.setBorderLine(2);
    box.setBorderColor(9);
    box.setBorderShading(8);
    box.setUnderline(3);
    box.setUnderlineAll(1);
    qcTextItem& over = add("ccccccccccd\ne\nf");
    over.setAbsolute(true);
    over.setAbsPage(-1);
    over.setTop(500);
    over.setLeft(700); // no step reads it
    over.setMaxHeight(480);
    RecordingPage drawn;
    document.PreviewPage(drawn, 1);
    EXPECT_EQ(drawn.stretches(), (QStringList{"1440,1940 cccccccccc", "1440,2180 d", "1540,1500 a",
                                              "1540,1740 b"})); // absolute ones first, and cut
    EXPECT_EQ(drawn.boxes, (std::vector<RecordingPage::Box>{{1540, 1350, 2440, 2070, 8, 4.8, 9}}));
    ASSERT_EQ(drawn.rules.size(), 3u);
    EXPECT_EQ(drawn.rules[0], (RecordingPage::Rule{1540, 2440, 1740, 2.4, 9}));
    EXPECT_EQ(drawn.rules[1], (RecordingPage::Rule{1540, 2440, 1980, 2.4, 9}));
    EXPECT_NEAR(drawn.rules[2].width, 7.2, 1e-9);
    EXPECT_EQ(drawn.rules[2].y, 1980); // the item's lower edge
}

TEST_F(DocumentTest, HostileGeometry) {
    addLines(30);
    add("<SIZE=999>ab");
    add("<LINDENT=99999>ab</LINDENT> cd");
    add("<RINDENT=-99999>" + QString(300, u'a'));
    const int pages = document.Pages();
    const auto letters = [&] { return texts().join(QString()).remove(u' '); };
    const QString whole = u"a"_s.repeated(30) + "ab" + "abcd" + u"a"_s.repeated(300);
    EXPECT_EQ(letters(), whole);
    EXPECT_GE(pages, 6);
    document.setMarginLeft(3000); // margins wider than the paper: nothing is measured and nothing drawn
    EXPECT_EQ(texts(), QStringList{QString()});
    document.setMarginLeft(1440);
    EXPECT_EQ(document.Pages(), pages);
    document.setMarginTop(9000); // and higher than it: a line a page, none is lost
    EXPECT_EQ(letters(), whole);
}

// Captions, tab stops and values, many of them empty: a text that ends in a tag which opens something has a
// last line without a height, and a closed indent counts later in drawing than in measuring.
TEST_F(DocumentTest, EveryLetterOfRowsWithEmptyValuesIsOnPaper) {
    std::mt19937 dice(7);
    const auto once = [&](unsigned in) { return dice() % in == 0; };
    for (int trial = 0; trial < 300; ++trial) {
        document.ResetItems();
        document.setMarginTop(static_cast<float>(dice() % 1500));
        document.setMarginRight(static_cast<float>(1000 + dice() % 1200));
        QString letters;
        const int rows = 1 + static_cast<int>(dice() % 40);
        char16_t letter = u'a';
        for (int row = 0; row < rows; ++row) {
            QString text;
            const int columns = 1 + static_cast<int>(dice() % 3);
            for (int column = 0; column < columns; ++column) {
                const QString value(once(2) ? 0 : 1 + static_cast<int>(dice() % (once(4) ? 14 : 4)), letter);
                letter = letter == u'z' ? u'a' : static_cast<char16_t>(letter + 1);
                letters += value;
                if (column > 0 || once(3)) text += once(3) ? "</LINDENT><LINDENT=500>" : "<LINDENT=300>";
                text += value;
                if (once(3)) text += "</LINDENT>";
                if (once(9)) text += "\n";
            }
            add(text + (once(4) ? QString::fromLatin1(once(2) ? "<FORCE>" : "<RINDENT=100>") : QString()));
        }
        QString drawn = texts().join(QString());
        ASSERT_EQ(drawn.remove(u' '), letters) << "trial " << trial;
    }
    // A line without a height turns no page.
    document.ResetItems();
    document.setMarginTop(1440);
    document.setMarginRight(1440);
    addLines(2);
    add("<LINDENT=100>");
    add("b<LINDENT=100>");
    add("c");
    EXPECT_EQ(document.Pages(), 1);
    EXPECT_EQ(page(1).sliced(2), (QStringList{"1440,1920 b", "1440,1920 c"}));
}

TEST_F(DocumentTest, LiteralTextPrintsAsItStands) {
    const QStringList data{"a<b>c",        "<",           "<<",          "<>", "a<b",
                           "<LINDENT=9>x", "<x </b> <q>", "1 < 2 > 1 <", "x"};
    for (const QString& each : data)
        document.AddText(literalText(each) + "<LINDENT=4>|</LINDENT>", {.fontName = "Arial", .bold = true});
    QStringList whole;
    for (const QString& each : data)
        whole << each << u"|"_s;
    EXPECT_EQ(texts().join(QString()), whole.join(QString()));
}

TEST_F(DocumentTest, TextsAtTheirPlacesOfAPage) {
    document.AddTextAt(200, 100, "corner", arial);
    document.AddTextAt(1700, 3000, "right", {.fontName = "Arial", .alignment = item_alignment::right}, 1,
                       1000);
    document.AddTextAt(1500, 3300, "aa bb", arial, 2, 250);
    EXPECT_EQ(document.Pages(), 2);
    EXPECT_EQ(page(1), (QStringList{"200,100 corner", "2250,3000 right"}));
    EXPECT_EQ(page(2), (QStringList{"1500,3300 aa", "1500,3540 bb"}));
    document.ResetItems();
    document.setScaleMode(scale_mode::millimetre);
    document.AddTextAt(10, 20, "mm", arial);
    EXPECT_EQ(page(1), QStringList{"567,1134 mm"});
}

TEST_F(DocumentTest, Prints) {
    for (const char* text : {"a", "b", "c"})
        add(QString::fromLatin1(text)).setNewPage(2);
    document.RemoveItem(3);
    const struct {
        int start, end, copies;
        bool collate;
        QStringList pages;
    } cases[] = {{1, 3, 1, false, {"a", "b", ""}},
                 {1, 2, 0, false, {"a", "b"}},
                 {1, 2, 2, false, {"a", "a", "b", "b"}},
                 {1, 2, 2, true, {"a", "b", "a", "b"}},
                 {2, 2, -3, true, {"b"}}};
    document.setAppName("Lista");
    for (std::size_t at = 0; at < std::size(cases); ++at) {
        const auto& told = cases[at];
        EXPECT_TRUE(document.PrintDoc(told.start, told.end, told.copies, told.collate, 0));
        EXPECT_EQ(printed(at), told.pages);
        EXPECT_TRUE(stand.printers.jobs[at]->ended);
        EXPECT_EQ(stand.printers.jobs[at]->setup.title, "Lista");
    }
    EXPECT_FALSE(document.PrintDoc(2, 1, 2, true, 0));
    EXPECT_FALSE(stand.printers.jobs.back()->ended);
}

TEST_F(DocumentTest, PrintersChangeVanishAndFail) {
    auto& printers = stand.printers.entries;
    printers[1].paper = {8, 5760, 7200, false, 3};
    printers[2].vanished = true;
    add("aaaaaaaaaaaaaaa\n").setNewPage(2);
    add("b");
    std::vector<bool> busy;
    stand.engine.busy = [&](bool on) { busy.push_back(on); };
    EXPECT_EQ(document.Pages(), 2);
    EXPECT_EQ(document.TextItem().Item(1).LineCount(), 2);

    EXPECT_TRUE(document.PrintDoc(1, 2, 1, true, 1));
    EXPECT_EQ(document.PrinterNumber(), 1);
    EXPECT_FALSE(document.OrientOkay()); // does not turn its paper
    document.setOrientation(2);
    EXPECT_EQ(document.Orientation(), 1);
    EXPECT_EQ(stand.printers.jobs[0]->setup.width, 5760);
    EXPECT_EQ(document.TextItem().Item(1).LineCount(), 1); // laid out for its wider paper
    EXPECT_EQ(printed(0), (QStringList{"aaaaaaaaaaaaaaa", "b"}));

    EXPECT_EQ(faultNumberOf([&] { document.PrintDoc(1, 2, 1, true, 2); }), fault::noPrinter);
    EXPECT_EQ(faultNumberOf([&] { document.PrintDoc(1, 2, 1, true, 7); }), fault::noPrinter);
    printers[0].faultyPage = 2;
    EXPECT_EQ(faultNumberOf([&] { document.PrintDoc(1, 2, 1, true, 0); }), fault::deviceError);
    EXPECT_FALSE(stand.printers.jobs[1]->ended);
    printers[0].faultyPage = 0;
    printers[0].givenUp = true;
    EXPECT_FALSE(document.PrintDoc(1, 2, 1, true, 0));
    printers[0].givenUp = false;
    stand.engine.pagePrinted = [](int done, int all) { return done < 3 && all == 4; };
    EXPECT_FALSE(document.PrintDoc(1, 2, 2, true, 0)); // broken off by the user
    EXPECT_EQ(printed(2).size(), 3);
    EXPECT_FALSE(stand.printers.jobs[2]->ended);
    EXPECT_EQ(document.Pages(), 2); // the document is still there
    EXPECT_EQ(std::count(busy.begin(), busy.end(), true), std::count(busy.begin(), busy.end(), false));

    PrintStand none(std::vector<StandPrinter>{});
    qcPrinter paperless(none.engine);
    paperless.AddText("a", arial);
    EXPECT_EQ(paperless.Pages(), 1); // A4
    EXPECT_EQ(none.engine.paper, (PaperSize{11906, 16838}));
    EXPECT_EQ(faultNumberOf([&] { paperless.PrintDoc(1, 1, 1, true, 0); }), fault::noPrinter);
}

TEST_F(DocumentTest, PrintsForms) {
    PrintableForm form{
        "urlap",
        1940,
        {{ControlKind::text, "Nev", "N\u00e9v", false, 800, 900, 300, 200, "Arial", 10, false, false},
         {ControlKind::optionButton, "Igen", "i", false, 900, 1000, 300, 200, "Arial", 10, false, false}}};
    EXPECT_EQ(faultNumberOf([&] { document.FormPrint_Update(form); }), fault::formNotPrinted);
    document.FormPrint(form);
    EXPECT_EQ(page(1), (QStringList{"1600,1800 N\u00e9v", "1800,2000 i"})); // twice the form's scale
    form.controls[1].text = "l";
    document.FormPrint_Update(form);
    EXPECT_EQ(document.TextItem().Item("Opt:Igen").Text(), "l");
    form.name = "masik";
    EXPECT_EQ(faultNumberOf([&] { document.FormPrint_Update(form); }), fault::otherForm);
}

} // namespace vandrel::test
