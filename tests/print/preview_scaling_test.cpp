// How the preview scales a page, and what its zoom and page range fields take.
#include "print/page_range.h"
#include "print/preview_scaling.h"
#include "print/save_name.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace vandrel::test {

namespace {

constexpr PaperSize a4{11906, 16838};
constexpr PaperSize bar{240, 240};

} // namespace

TEST(PreviewScaling, BarsAppearUntilTheyDoNotMakeEachOtherNeeded) {
    struct Case {
        const char* what;
        PaperSize area;
        float zoom;
        double factor;
        bool horizontal, vertical;
        PaperSize view;
    };
    const Case cases[] = {
        {"room for all", {20'000, 20'000}, 100, 1, false, false, {20'000, 20'000}},
        {"as large as the page: it fits, though its holder does not", a4, 100, 1, false, false, a4},
        {"a twip too low", {20'000, 16'837}, 100, 1, false, true, {19'760, 16'837}},
        {"the vertical bar takes the width away", {11'906, 16'837}, 100, 1, true, true, {11'666, 16'597}},
        {"the horizontal bar takes the height away", {11'905, 16'838}, 100, 1, true, true, {11'665, 16'598}},
        {"half", {6'000, 8'419}, 50, 0.5, false, false, {6'000, 8'419}},
        {"whole page", {20'000, 8'899}, preview::wholePage, 0.5, false, false, {20'000, 8'899}},
        {"whole page in a narrow window: the bar takes height once, and the page shrinks",
         {1'000, 8'899},
         preview::wholePage,
         (8'659.0 - 480) / 16'838,
         true,
         false,
         {1'000, 8'659}},
        {"whole width: the vertical bar narrows the page",
         {12'386, 10'000},
         preview::wholeWidth,
         (12'146.0 - 480) / 11'906,
         false,
         true,
         {12'146, 10'000}},
        {"whole width in a high window",
         {6'433, 9'000},
         preview::wholeWidth,
         0.5,
         false,
         false,
         {6'433, 9'000}},
    };
    for (const Case& each : cases) {
        SCOPED_TRACE(each.what);
        const preview::Scaling scaling = preview::scale(a4, each.area, bar, each.zoom);
        EXPECT_DOUBLE_EQ(scaling.factor, each.factor);
        EXPECT_EQ(scaling.horizontalBar, each.horizontal);
        EXPECT_EQ(scaling.verticalBar, each.vertical);
        EXPECT_EQ(scaling.view, each.view);
        EXPECT_DOUBLE_EQ(scaling.copy.width, a4.width * each.factor);
        EXPECT_DOUBLE_EQ(scaling.holder.height, a4.height * each.factor + 480);
    }
    // No room at all: still a page, and an end.
    for (const float zoom : {100.0F, preview::wholePage, preview::wholeWidth})
        EXPECT_GT(preview::scale(a4, {100, 100}, bar, zoom).copy.height, 0) << zoom;
}

TEST(PreviewScaling, RangesOfTheScrollBars) {
    EXPECT_EQ(preview::scrollRange(17'318, 10'118), (preview::ScrollRange{501, 702}));
    EXPECT_EQ(preview::scrollRange(10'119, 10'118), (preview::ScrollRange{1, 702}));
    EXPECT_EQ(preview::scrollRange(10'118, 10'118), (preview::ScrollRange{0, 702}));
    EXPECT_EQ(preview::scrollRange(480, -200), (preview::ScrollRange{48, 0}));
}

TEST(PreviewScaling, TypedZooms) {
    const std::pair<const char16_t*, float> good[] = {
        {u"120", 120}, {u"120 %", 120},   {u" 120% ", 120}, {u"200", 200},
        {u"1", 1},     {u"62,5 %", 62.5}, {u"62.5", 62.5},  {u"0,5", 0.5},
    };
    for (const auto& [typed, zoom] : good)
        EXPECT_EQ(preview::readZoom(typed), zoom) << QString::fromUtf16(typed).toStdString();
    for (const char16_t* typed :
         {u"201", u"200,01", u"0", u"0,0 %", u"", u" ", u"%", u"abc", u"-50", u"1e2", u"12 0", u"100 %%",
          u"Teljes oldal", u"99999999999999999999", u"nan", u"\u0661\u0662"})
        EXPECT_EQ(preview::readZoom(typed), std::nullopt) << QString::fromUtf16(typed).toStdString();
    EXPECT_EQ(preview::zoomText(120), u"120 %"_s);
    EXPECT_EQ(preview::zoomText(33.3F), u"33,3 %"_s);
}

TEST(PageRanges, WhatTheOptionsMean) {
    struct Case {
        PageChoice choice;
        const char* from;
        const char* to;
        std::optional<PageRange> range;
    };
    const Case cases[] = {
        {PageChoice::all, "9", "x", PageRange{1, 12}},  {PageChoice::current, "9", "x", PageRange{5, 5}},
        {PageChoice::range, "2", "3", PageRange{2, 3}}, {PageChoice::range, " 12 ", "12", PageRange{12, 12}},
        {PageChoice::range, "3", "2", std::nullopt},    {PageChoice::range, "0", "2", std::nullopt},
        {PageChoice::range, "1", "13", std::nullopt},   {PageChoice::range, "13", "14", std::nullopt},
        {PageChoice::range, "", "2", std::nullopt},     {PageChoice::range, "1", "", std::nullopt},
        {PageChoice::range, "1,5", "2", std::nullopt},  {PageChoice::range, "1", "99999999999", std::nullopt},
    };
    for (const Case& each : cases)
        EXPECT_EQ(chosenRange(each.choice, 5, 12, QString::fromUtf8(each.from), QString::fromUtf8(each.to)),
                  each.range)
            << each.from << " - " << each.to;
    EXPECT_EQ(offeredRange(PageChoice::current, 5, 12), (PageRange{5, 5}));
    EXPECT_EQ(offeredRange(PageChoice::range, 5, 12), (PageRange{1, 12}));
    EXPECT_EQ(typedCopies(QString()), 0);
    EXPECT_EQ(typedCopies(u"3"_s), 3);
}

TEST(SaveNames, AreTakenByEveryFileSystem) {
    const auto pdf = [](const QString& title) { return suggestedFileName(title, u"pdf"_s); };
    EXPECT_EQ(pdf(u"Betegforgalmi napló"_s), u"Betegforgalmi napló.pdf"_s);
    EXPECT_EQ(pdf(u"2008.03. / \"őszi\"\n<lista>"_s), u"2008.03. _ _őszi_ _lista_.pdf"_s);
    EXPECT_EQ(pdf(u"../titok."_s), u"_titok.pdf"_s);
    for (const QString& empty : {QString(), u" . "_s, u"///"_s})
        EXPECT_EQ(pdf(empty), u"dokumentum.pdf"_s) << empty.toStdString();
    EXPECT_LT(pdf(QString(10'000, QChar(0x96EA))).toUtf8().size(), 256);
    EXPECT_EQ(withEnding(u"/a/Lista 2008.03"_s, u"pdf"_s), u"/a/Lista 2008.03.pdf"_s);
    EXPECT_EQ(withEnding(u"/a/Lista.PDF"_s, u"pdf"_s), u"/a/Lista.PDF"_s);
}

} // namespace vandrel::test
