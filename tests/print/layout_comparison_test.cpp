// The print engine against the plain layout: thousands of generated documents, each line, page, position and
// drawn character the same.
#include "print/plain_layout.h"
#include "print/qc_printer.h"
#include "support/print_stand.h"
#include "support/test_workstation.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

using namespace Qt::StringLiterals;

namespace vandrel::test {

namespace {

class Dice {
  public:
    explicit Dice(unsigned seed) : m_source(seed) {}
    int below(int limit) { return static_cast<int>(m_source() % static_cast<unsigned>(limit)); }
    bool once(int in) { return below(in) == 0; }
    QString pick(const QStringList& list) { return list[below(static_cast<int>(list.size()))]; }

  private:
    std::mt19937 m_source;
};

QString indent(Dice& dice, long mode) {
    const int most = dice.once(8) ? 20000 : dice.once(3) ? 4000 : 900; // twips
    const double value = fromTwips(dice.below(most), mode, Axis::horizontal, {3000, 3000});
    return QString::number(dice.once(12) ? -value : value, 'f', dice.below(4));
}

QString tag(Dice& dice, long mode) {
    static const QStringList plain{"<B>",     "</B>",     "<i>",     "</I>",     "<U>",     "</u>",
                                   "</FONT>", "</COLOR>", "</SIZE>", "</ALIGN>", "<FORCE>", "<Force it>"};
    static const QStringList odd{"<",
                                 ">",
                                 "<>",
                                 "<Q>",
                                 "</X>",
                                 "</unknown>",
                                 "<unknown>",
                                 "<b",
                                 "< B>",
                                 "<LINDENT>",
                                 "<SIZE=>",
                                 "<SIZE=abc>",
                                 "<COLOR=#12345>",
                                 "<ALIGN=MIDDLE>",
                                 "<FONT=>",
                                 "<LINDENT=abc>",
                                 "<LINDENT=#800000>",
                                 "<SIZE=0>",
                                 "<<B>",
                                 "<RINDENT=x<B>"};
    switch (dice.below(9)) {
    case 0:
        return u"<LINDENT=%1>"_s.arg(indent(dice, mode));
    case 1:
        return u"<RINDENT=%1>"_s.arg(indent(dice, mode));
    case 2:
        return dice.once(2) ? u"</LINDENT>"_s : u"</Rindent>"_s;
    case 3:
        return u"<ALIGN=%1>"_s.arg(dice.pick({"LEFT", "right", "CENTRE", "center", "Justify", "JUSTIFY"}));
    case 4:
        return u"<SIZE=%1>"_s.arg(dice.once(60) ? u"999"_s : dice.pick({"10", "5", "12.5", "20", "8", "40"}));
    case 5:
        return dice.pick({"<FONT=Courier New>", "<FONT=Arial>", "<COLOR=#FF8000>", "<color=255>"});
    case 6:
        return dice.pick(odd);
    default:
        return dice.pick(plain);
    }
}

// tags: one piece in so many is a tag; 0: none.
QString text(Dice& dice, int pieces, int tags, long mode) {
    static const QStringList letters{"a", "i", "W",  "m",      "\u00e9",    "\u0171",
                                     "l", "t", "\t", "\u4e00", "\U0001F600"};
    QString all;
    for (int piece = 0; piece < pieces; ++piece) {
        if (tags > 0 && dice.once(tags)) {
            all += tag(dice, mode);
            if (dice.once(2)) continue;
        }
        const int kind = dice.below(30);
        if (kind == 0)
            all += dice.pick({"\n", "\r", "\r\n", "\n\n", "\n\r", "\r\r\n"});
        else if (kind < 3)
            all += dice.pick({"-", "--", " - ", "-a-"});
        else if (kind < 5)
            all += QString(1 + dice.below(6), u' ');
        else if (kind == 5)
            all += QString(10 + dice.below(60), u'x');
        const int size = 1 + dice.below(9);
        for (int letter = 0; letter < size; ++letter)
            all += letters[dice.once(12) ? dice.below(11) : dice.below(7)];
        if (!dice.once(6)) all += u' ';
    }
    return all;
}

plain::Item item(Dice& dice, bool small) {
    plain::Item item;
    item.scaleMode = dice.once(3) ? 1 : dice.once(8) ? 11 : 6;
    const int pieces = dice.once(12) ? 0 : 1 + dice.below(dice.once(6) ? 120 : small ? 12 : 40);
    item.text = text(dice, pieces, dice.once(4) ? 0 : 1 + dice.below(9), item.scaleMode);
    item.fontName = dice.pick({"Arial", "Arial", "Courier New"});
    item.fontSize = static_cast<float>(dice.once(3) ? 6 + dice.below(20) / 2.0 : 10);
    item.bold = dice.once(5);
    item.italic = dice.once(8);
    item.underlined = dice.once(8);
    item.color = dice.once(4) ? dice.below(0xFFFFFF) : 0;
    item.alignment = dice.once(2) ? 0 : dice.below(4);
    const auto length = [&](int in, int most) {
        return dice.once(in) ? static_cast<float>(dice.below(most)) : 0.0F;
    };
    item.indentLeft = length(3, dice.once(10) ? 9000 : 600);
    item.indentRight = length(3, dice.once(10) ? 9000 : 600);
    item.lineSpacing = length(5, 100);
    item.top = length(4, dice.once(5) ? 3000 : 200);
    item.newPage = dice.once(7) ? dice.below(4) : 0;
    if (dice.once(6)) {
        item.showBorder = true;
        item.borderLine = dice.below(4);
        item.borderColor = dice.below(1000);
        item.borderShading = dice.once(2) ? -1 : dice.below(1000);
    }
    item.underline = dice.once(8) ? 1 + dice.below(3) : 0;
    item.underlineAll = dice.once(8) ? 1 + dice.below(3) : 0;
    if (dice.once(9)) {
        item.absolute = true;
        item.absPage = dice.below(5) - 1;
        item.maxHeight = length(2, 1000);
    }
    return item;
}

void fill(qcTextItem& target, const plain::Item& from) {
    target.setScaleMode(1);
    target.setText(from.text);
    target.setFontName(from.fontName);
    target.setFontSize(from.fontSize);
    target.setFontBold(from.bold);
    target.setFontItalic(from.italic);
    target.setFontUnderline(from.underlined);
    target.setFontColor(from.color);
    target.setAlignment(from.alignment);
    target.setIndentLeft(from.indentLeft);
    target.setIndentRight(from.indentRight);
    target.setLineSpacing(from.lineSpacing);
    target.setMaxHeight(from.maxHeight);
    target.setTop(from.top);
    target.setAbsolute(from.absolute);
    target.setAbsPage(from.absPage);
    target.setNewPage(from.newPage);
    target.setShowBorder(from.showBorder);
    target.setBorderLine(from.borderLine);
    target.setBorderColor(from.borderColor);
    target.setBorderShading(from.borderShading);
    target.setUnderline(from.underline);
    target.setUnderlineAll(from.underlineAll);
    target.setScaleMode(from.scaleMode);
}

// What differs first; empty: nothing.
QString difference(const qcTextItem& item, const plain::Item& told) {
    QStringList all;
    const auto compare = [&](const char* name, double is, double should) {
        if (std::abs(is - should) > 0.01 + std::abs(should) * 1e-6) // kept in single precision
            all << u"%1 is %2, not %3"_s.arg(QLatin1StringView(name)).arg(is).arg(should);
    };
    compare("LineCount", item.LineCount(), told.lineCount);
    if (!all.isEmpty()) return all.first();
    for (int line = 0; line < told.lineCount; ++line)
        compare("line height", item.LineHeight(line + 1), told.lineHeights[static_cast<std::size_t>(line)]);
    qcTextItem twips = item;
    twips.setScaleMode(1);
    compare("Width", twips.Width(), told.width);
    compare("Height", twips.Height(), told.height);
    if (!told.absolute) {
        compare("StartPage", item.StartPage(), told.startPage);
        compare("EndPage", item.EndPage(), told.endPage);
        compare("PositionStart", twips.PositionStart(), told.positionStart);
        compare("PositionEnd", twips.PositionEnd(), told.positionEnd);
    }
    return all.isEmpty() ? QString() : all.first();
}

QString difference(const RecordingPage& page, const RecordingPage& told) {
    const auto is = page.characters();
    const auto should = told.characters();
    const auto show = [](const std::vector<RecordingPage::Drawn>& all, std::size_t at) {
        if (at >= all.size()) return u"nothing"_s;
        const auto& one = all[at];
        return u"'%1' at %2,%3 %4 %5"_s.arg(one.character)
            .arg(one.x)
            .arg(one.y)
            .arg(one.font.name)
            .arg(one.font.size);
    };
    for (std::size_t at = 0; at < std::max(is.size(), should.size()); ++at) {
        if (at < is.size() && at < should.size() && is[at].character == should[at].character &&
            std::abs(is[at].x - should[at].x) < 0.01 && std::abs(is[at].y - should[at].y) < 0.01 &&
            is[at].font == should[at].font && is[at].underline == should[at].underline &&
            is[at].color == should[at].color)
            continue;
        return u"character %1: %2, not %3"_s.arg(at).arg(show(is, at), show(should, at));
    }
    const auto far = [](double a, double b) { return std::abs(a - b) > 0.01; };
    if (!std::equal(page.rules.begin(), page.rules.end(), told.rules.begin(), told.rules.end(),
                    [&](const auto& a, const auto& b) {
                        return !far(a.left, b.left) && !far(a.right, b.right) && !far(a.y, b.y) &&
                               !far(a.width, b.width) && a.color == b.color;
                    }))
        return u"rules"_s;
    if (!std::equal(page.boxes.begin(), page.boxes.end(), told.boxes.begin(), told.boxes.end(),
                    [&](const auto& a, const auto& b) {
                        return !far(a.left, b.left) && !far(a.right, b.right) && !far(a.top, b.top) &&
                               !far(a.bottom, b.bottom) && !far(a.outline, b.outline) && a.fill == b.fill &&
                               a.color == b.color;
                    }))
        return u"boxes"_s;
    return {};
}

// What differs first, in the items and on pages drawn in any order: the engine keeps where they begin.
QString difference(qcPrinter& document, plain::Document& told, Dice& dice) {
    int number = 0;
    for (const plain::Item& should : told.items) {
        const QString wrong = difference(document.TextItem().Item(++number), should);
        if (!wrong.isEmpty()) return u"item %1: %2 in \"%3\""_s.arg(number).arg(wrong, should.text.left(300));
    }
    const int pages = document.Pages();
    const int draws = pages > 60 ? 2 : std::min(pages + 1, 5);
    for (int draw = 0; draw < draws; ++draw) {
        const int first = 1 + dice.below(std::max(pages, 1));
        const int last = draw == 0 ? std::min(first + 5, pages) : first;
        RecordingPage is, should;
        document.WalkDocument(is, first, last);
        told.walk(should, first, last);
        const QString wrong = difference(is, should);
        if (!wrong.isEmpty()) return u"page %1 of %2: %3"_s.arg(first).arg(pages).arg(wrong);
    }
    return {};
}

// The same write to both.
int change(qcPrinter& document, plain::Document& told, Dice& dice) {
    const int kind = dice.below(told.items.empty() ? 4 : 12);
    if (kind == 0) {
        document.setMarginLeft(static_cast<float>(told.marginLeft += 100));
    } else if (kind == 1) {
        document.setMarginBottom(static_cast<float>(told.marginBottom += 100));
    } else if (kind == 2) {
        document.setAppName(told.appName = u"a\nb\nc"_s);
    } else if (kind == 3) {
        document.Header(4).setText(told.headers[4].text = u"a\nb"_s);
        document.Pages();
        told.paginate();
        document.setSetHeader(4, told.setHeader[4] = !told.setHeader[4]); // does not ask for a pagination
    } else {
        const auto index = static_cast<std::size_t>(dice.below(static_cast<int>(told.items.size())));
        plain::Item& should = told.items[index];
        qcTextItem& is = document.TextItem().Item(static_cast<int>(index) + 1);
        if (kind == 4) is.setText(should.text = text(dice, 10, 5, 6));
        if (kind == 5) is.setAlignment(should.alignment = dice.below(4));
        if (kind == 6) is.setShowBorder(should.showBorder = !should.showBorder);
        if (kind == 7) is.setScaleMode(should.scaleMode = should.scaleMode == 6 ? 7 : 6);
        if (kind == 8) is.setNewPage(should.newPage = dice.below(4));
        if (kind == 9) is.setFontColor(should.color = 77);
        if (kind == 10) is.setAbsolute(should.absolute = !should.absolute);
        if (kind == 11) is.setAbsPage(should.absPage = 1);
    }
    return kind;
}

// What differs first in the document of that seed.
QString differenceOf(unsigned seed, int& pages) {
    Dice dice(seed);
    const bool tiny = dice.once(6);
    PaperSize paper{3000.0 + dice.below(5000), 2000.0 + dice.below(6000)};
    if (tiny) paper = {1500.0 + dice.below(900), 1000.0 + dice.below(900)};
    PrintStand stand(paper.width, paper.height);
    qcPrinter document(stand.engine);
    plain::Document told(stand.meter, paper, stand.engine.printer.twipsPerPixelY());
    const auto margin = [&] { return static_cast<float>(dice.below(dice.once(20) ? 2000 : 500)); };
    document.setMarginLeft(margin());
    document.setMarginRight(margin());
    document.setMarginTop(margin());
    document.setMarginBottom(margin());
    told.marginLeft = document.MarginLeft();
    told.marginRight = document.MarginRight();
    told.marginTop = document.MarginTop();
    told.marginBottom = document.MarginBottom();
    document.setAppName(told.appName = u"J\u00e1r\u00f3beteg <B>program"_s);
    for (int slot = 0; slot < 10; ++slot) {
        if (!dice.once(4)) continue;
        plain::Item head = item(dice, true);
        head.absolute = false;
        head.text = head.text.left(20) + dice.pick({"#pagenumber# / #pagetotal#", "#appname# ", ""});
        const int number = slot % 5;
        auto& slots_ = slot < 5 ? told.headers : told.footers;
        (slot < 5 ? told.setHeader : told.setFooter)[static_cast<std::size_t>(number)] = true;
        slots_[static_cast<std::size_t>(number)] = head;
        fill(slot < 5 ? document.Header(number) : document.Footer(number), head);
        slot < 5 ? document.setSetHeader(number, true) : document.setSetFooter(number, true);
    }
    const int count = dice.once(20) ? 0 : 1 + dice.below(10);
    for (int at = 0; at < count; ++at) {
        // A list's paragraphs look alike and are shared.
        if (at > 0 && dice.once(2) && !told.items.back().absolute) {
            plain::Item next;
            next.text = text(dice, 1 + dice.below(20), 6, 1);
            told.items.push_back(next);
            document.AddText(next.text, {next.fontName});
        } else {
            told.items.push_back(item(dice, false));
            document.AddText({}, {});
            fill(document.TextItem().Item(at + 1), told.items.back());
        }
    }
    pages = document.Pages();
    if (const int should = told.paginate(); pages != should)
        return u"%1 pages, not %2"_s.arg(pages).arg(should);
    QString wrong = difference(document, told, dice);
    // Something is written, and what was found out before must not be taken for true any more.
    for (int write = 0; write < 2 && pages < 100 && wrong.isEmpty(); ++write) {
        const int kind = change(document, told, dice);
        if (stand.engine.NeedsPaging) told.paginate();
        pages = document.Pages();
        wrong = pages == told.pages() ? difference(document, told, dice)
                                      : u"%1 pages, not %2"_s.arg(pages).arg(told.pages());
        if (!wrong.isEmpty()) wrong = u"after change %1: %2"_s.arg(kind).arg(wrong);
    }
    return wrong;
}

} // namespace

TEST(PrintComparison, EngineLaysOutAsThePlainWalk) {
    int failures = 0, allPages = 0;
    for (unsigned seed = 1; seed <= 1500 && failures < 5; ++seed) {
        int pages = 0;
        const QString wrong = differenceOf(seed, pages);
        allPages += pages;
        if (wrong.isEmpty()) continue;
        ++failures;
        ADD_FAILURE() << "seed " << seed << ": " << wrong.toStdString();
    }
    EXPECT_GT(allPages, 6000); // the documents were worth comparing
}

} // namespace vandrel::test
