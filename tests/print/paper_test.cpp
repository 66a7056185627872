// Fonts, the page painter, PDF files and the spool: what lies between the laid-out page and the machine.
#include "print/font_meter.h"
#include "print/page_painter.h"
#include "print/page_spool.h"
#include "print/pdf_file.h"
#include "support/print_stand.h"

#include <QDir>
#include <QFile>
#include <QFontMetricsF>
#include <QImage>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>

#include <cmath>
#include <csignal>
#include <limits>

#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace vandrel::test {

namespace {

const FontChoice times{u"Times New Roman"_s, 10};
const QString accents = u"fi ffl AVATo á é í ó ö ő ú ü ű Á É Í Ó Ö Ő Ú Ü Ű"_s;
const PrintJobSetup a4{0, orientation::portrait, 11906, 16838, u"Próba <b>&\""_s};

// A run of the text from x on; stretched: so much more after each character.
struct Line {
    Line(TextMeter& meter, const QString& given, double x, double y, double stretched = 0) : text(given) {
        run.face = &meter.face(times);
        for (qsizetype at = 0; at < text.size(); ++at) {
            xs.push_back(x);
            const DecodedCharacter decoded = characterAt(text, at);
            if (decoded.pair) xs.push_back(x), ++at;
            x += run.face->width(decoded.character) + stretched;
        }
        run.text = text;
        run.xs = xs;
        run.y = y;
        run.natural = stretched == 0;
    }
    void drawEach(PageTarget& page) const {
        for (std::size_t at = 0; at < xs.size(); ++at) {
            TextRun one = run;
            one.text = run.text.mid(static_cast<qsizetype>(at), 1);
            one.xs = run.xs.subspan(at, 1);
            page.text(one);
        }
    }

    QString text;
    std::vector<double> xs;
    TextRun run;
};

QString outputOf(const QString& program, const QStringList& arguments) {
    QProcess process;
    process.start(program, arguments);
    process.waitForFinished();
    return process.exitStatus() == QProcess::NormalExit && process.exitCode() == 0
               ? QString::fromUtf8(process.readAllStandardOutput())
               : u"%1 failed"_s.arg(program);
}

QByteArray bytesOf(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("not there");
}

// The fault of a PDF of so many pages at that path; 0: it is there.
int faultOf(const QString& path, int pages = 1) {
    FontMeter meter;
    try {
        PdfJob job(path, a4);
        for (int page = 0; page < pages; ++page) {
            job.page().text(Line(meter, QString::number(page) + accents, 1000, 1000).run);
            job.newPage();
        }
        job.endDoc();
    } catch (const Fault& fault) {
        EXPECT_TRUE(fault.text().contains(path)) << fault.what();
        return fault.number();
    }
    return 0;
}

} // namespace

TEST(PageFonts, FamiliesAndWidths) {
    EXPECT_NO_THROW(requirePageFonts());
    const std::pair<const char*, const char*> families[] = {{"Times New Roman", "Liberation Serif"},
                                                            {"times new roman CE", "Liberation Serif"},
                                                            {"Arial", "Liberation Sans"},
                                                            {"Arial CE", "Liberation Sans"},
                                                            {"wingdings", "DejaVu Sans"},
                                                            {"Liberation Mono", "Liberation Mono"},
                                                            {"No, such' family", "Liberation Sans"},
                                                            {"", "Liberation Sans"}};
    for (const auto& [name, family] : families)
        EXPECT_EQ(QFontInfo(PageFont({QLatin1StringView(name), 10}).font()).family(),
                  QLatin1StringView(family));
    EXPECT_TRUE(PageFont({u"Wingdings"_s, 10}).sign(U'\u2713').byGlyph);

    FontMeter meter;
    const Face& face = meter.face(times);
    const Face& doubled = meter.face({times.name, 20});
    // What Qt makes of the whole text: neither kerning nor ligatures are in it.
    EXPECT_NEAR(face.width(accents), QFontMetricsF(PageFont(times).font()).horizontalAdvance(accents), 0.01);
    EXPECT_NEAR(doubled.width(accents), 2 * face.width(accents), 1); // linear: no hinting
    EXPECT_GT(face.height(), face.ascent());
    EXPECT_GT(meter.face({times.name, 10, true}).width(accents), face.width(accents));
    for (const char32_t control : {0x00U, 0x09U, 0x0AU, 0x1FU, 0x7FU, 0x85U, 0x2028U})
        EXPECT_EQ(face.width(control), face.width(U' ')) << static_cast<unsigned>(control);
    EXPECT_EQ(face.width(U'\u200D'), 0);
    EXPECT_EQ(face.width(U'\u00AD'), face.width(U'-'));
    for (const float size : {0.0F, -1.0F, 999.0F, 1e9F, std::numeric_limits<float>::quiet_NaN()})
        for (const char32_t odd : {0xD800U, 0xDFFFU, 0x0301U, 0x0627U, 0x6F22U, 0xFFFFU, 0x1F600U, 0x10FFFFU,
                                   0x110000U, 0xFFFFFFFFU}) {
            const double width = meter.face({times.name, size}).width(odd);
            EXPECT_TRUE(std::isfinite(width) && width >= 0) << static_cast<unsigned>(odd) << " at " << size;
        }
}

TEST(PdfFile, TextIsFoundWhereItWasLaidOut) {
    const QTemporaryDir directory;
    const QString path = directory.filePath(u"ő próba.pdf"_s);
    FontMeter meter;
    PdfJob job(path, a4);
    const Line natural(meter, accents, 1000.25, 1000), stretched(meter, accents, 1000.25, 2000, 12.6);
    const Line each(meter, accents, 1000.25, 3000), foreign(meter, u"✓ 漢 😀 vége"_s, 1000, 4000, 3);
    job.page().text(natural.run);
    job.page().text(stretched.run);
    each.drawEach(job.page());
    job.page().text(foreign.run);
    job.endDoc();

    const QStringList lines = outputOf(u"pdftotext"_s, {path, u"-"_s}).split(u'\n');
    EXPECT_EQ(lines.count(accents), 3);
    for (const QString& shown : {u"✓"_s, u"vége"_s}) // other fonts have other heights
        EXPECT_EQ(lines.filter(shown).size(), 1) << shown.toStdString();
    // The words of one line after the other, each with its place in points.
    const QString boxes = outputOf(u"pdftotext"_s, {u"-bbox"_s, path, u"-"_s});
    EXPECT_TRUE(boxes.contains(u"<title>Próba &lt;b&gt;&amp;&quot;</title>"_s));
    auto word =
        QRegularExpression(u"<word xMin=\"([0-9.]+)\" yMin=\"([0-9.]+)\"[^>]*>([^<]*)"_s).globalMatch(boxes);
    for (const Line* run : {&natural, &stretched, &each})
        for (qsizetype at = 0; at < accents.size(); at = accents.indexOf(u' ', at) + 1) {
            ASSERT_TRUE(word.hasNext());
            const auto found = word.next();
            EXPECT_TRUE(QStringView(accents).mid(at).startsWith(found.captured(3)));
            EXPECT_NEAR(found.captured(1).toDouble(), run->xs[static_cast<std::size_t>(at)] / 20, 0.001);
            if (accents.indexOf(u' ', at) < 0) break;
        }
}

TEST(PdfFile, PagesAndPaper) {
    const QTemporaryDir directory;
    const QString path = directory.filePath(u"lapok.pdf"_s);
    FontMeter meter;
    const auto info = [&](const QString& actions, const PrintJobSetup& setup) {
        PdfJob job(path, setup);
        for (const QChar action : actions) {
            PageTarget& page = job.page(); // looking at a page does not begin it
            if (action == u'n')
                job.newPage();
            else
                page.rule(0, 1000, 1000, 20, 0);
        }
        job.endDoc();
        return outputOf(u"pdfinfo"_s, {path});
    };
    const std::pair<const char*, int> cases[] = {{"", 1},   {"n", 1},  {"d", 1},    {"dn", 1},    {"dnn", 2},
                                                 {"nn", 2}, {"nd", 2}, {"dndn", 2}, {"dnnndn", 4}};
    for (const auto& [actions, pages] : cases)
        EXPECT_TRUE(
            info(QLatin1StringView(actions), a4).contains(QRegularExpression(u"Pages: +%1\n"_s.arg(pages))))
            << actions;
    EXPECT_TRUE(info({}, a4).contains(u"595 x 842 pts (A4)"_s));
    EXPECT_TRUE(info({}, {0, orientation::landscape, 16838, 11906, {}}).contains(u"842 x 595 pts"_s));
    EXPECT_TRUE(info({}, {0, 1, 0, std::nan(""), {}}).contains(u"595 x 842 pts"_s));
}

TEST(PdfFile, WhollyOrNotAtAll) {
    QTemporaryDir directory;
    const QString path = directory.filePath(u"lista.pdf"_s);
    const QString earlier = directory.filePath(u"régi.pdf"_s);
    ASSERT_EQ(faultOf(earlier), 0);
    const QByteArray before = bytesOf(earlier);
    const QStringList files = QDir(directory.path()).entryList(QDir::Files);

    EXPECT_EQ(faultOf(directory.path()), fault::pathAccess);
    EXPECT_EQ(faultOf(directory.filePath(u"nincs/a.pdf"_s)), fault::pathNotFound);
    EXPECT_EQ(faultOf(earlier + u"/a.pdf"_s), fault::pathNotFound);
    EXPECT_EQ(faultOf(u"/dev/null"_s), fault::pathAccess); // and it is a device still:
    struct stat device {};
    ASSERT_EQ(stat("/dev/null", &device), 0);
    EXPECT_TRUE(S_ISCHR(device.st_mode));

    // A disk with room for 5,000 bytes: the fault comes at the end with few pages and on the way with many.
    rlimit unlimited{};
    ASSERT_EQ(getrlimit(RLIMIT_FSIZE, &unlimited), 0);
    const rlimit full{5'000, unlimited.rlim_max};
    const auto signalBefore = std::signal(SIGXFSZ, SIG_IGN);
    ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &full), 0);
    const int few = faultOf(earlier, 2), many = faultOf(earlier, 2000), fresh = faultOf(path, 2);
    ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &unlimited), 0);
    std::signal(SIGXFSZ, signalBefore);
    EXPECT_EQ(few, fault::diskFull);
    EXPECT_EQ(many, fault::diskFull);
    EXPECT_EQ(fresh, fault::diskFull);

    { // broken off
        FontMeter meter;
        PdfJob job(path, a4);
        job.page().text(Line(meter, accents, 1000, 1000).run);
        job.newPage();
    }

    // Rights bind only who is not the administrator.
    ASSERT_EQ(chmod(QFile::encodeName(directory.path()).constData(), 0555), 0);
    ASSERT_EQ(chmod(QFile::encodeName(earlier).constData(), 0444), 0);
    const bool administrator = geteuid() == 0;
    ASSERT_TRUE(!administrator || seteuid(65534) == 0);
    const int folder = faultOf(path), file = faultOf(earlier);
    ASSERT_TRUE(!administrator || seteuid(0) == 0);
    EXPECT_EQ(folder, fault::pathAccess);
    EXPECT_EQ(file, fault::pathAccess);

    EXPECT_EQ(bytesOf(earlier), before);
    EXPECT_EQ(QDir(directory.path()).entryList(QDir::Files), files);
    ASSERT_EQ(chmod(QFile::encodeName(directory.path()).constData(), 0755), 0);
}

TEST(PagePainter, RunsLookLikeTheirCharacters) {
    FontMeter meter;
    for (const double scale : {1.0 / 30, 96.0 / 1440, 200 * 0.96 / 1440}) {
        QImage whole(static_cast<int>(6000 * scale), static_cast<int>(2000 * scale), QImage::Format_RGB32);
        whole.fill(Qt::white);
        QImage single = whole, other = whole;
        const QImage empty = whole;
        const auto paint = [&](QImage& image, const auto& draw) {
            QPainter painter(&image);
            PagePainter page(painter, scale);
            draw(page);
        };
        const Line natural(meter, accents, 200, 200), stretched(meter, accents, 200, 1000, 40);
        paint(whole, [&](PageTarget& page) { page.text(natural.run), page.text(stretched.run); });
        paint(single, [&](PageTarget& page) { natural.drawEach(page), stretched.drawEach(page); });
        EXPECT_NE(whole, empty);
        EXPECT_EQ(whole, single);

        // Even the thinnest rule is seen in its colour, of which only 24 bits count.
        paint(other, [](PageTarget& page) {
            page.rule(3000, 300, 700, 0.1, 0x7F0000FF);
            page.box(300, 1500, 3000, 1900, 0x00FF00, 0.1, 0xFF0000);
        });
        const auto at = [&](double x, double y) {
            return other.pixelColor(static_cast<int>(std::round(x * scale)),
                                    static_cast<int>(std::round(y * scale)));
        };
        EXPECT_EQ(at(1000, 700), QColor(255, 0, 0));
        EXPECT_EQ(at(1000, 1700), QColor(0, 255, 0));
        EXPECT_EQ(at(1000, 1500), QColor(0, 0, 255));
        EXPECT_EQ(at(200, 1700), QColor(255, 255, 255));
        other.fill(Qt::white);
        // What lies nowhere paints nothing and does no harm.
        paint(other, [&](PageTarget& page) {
            for (const double far : {std::nan(""), HUGE_VAL, -1e30}) {
                page.text(Line(meter, accents, far, 100).run);
                page.text(Line(meter, accents, 100, far).run);
                page.rule(far, 100, 100, 100, 0);
                page.box(100, 100, far, 100, 0, far, 0);
            }
            page.text(Line(meter, u"\t \n\r"_s + QChar(0x200D), 200, 200).run);
        });
        EXPECT_EQ(other, empty);
    }
}

TEST(PagePainter, UnderlineRunsFromEndToEnd) {
    FontMeter meter;
    Line run(meter, u"a b"_s, 200, 200, 300);
    QImage plain(1000, 500, QImage::Format_RGB32);
    plain.fill(Qt::white);
    QImage underlined = plain;
    for (QImage* image : {&plain, &underlined}) {
        QPainter painter(image);
        PagePainter page(painter, 0.5);
        run.run.underline = image == &underlined;
        page.text(run.run);
    }
    int first = -1, last = -1;
    for (int x = 0; x < plain.width(); ++x) // in the gaps between the letters too
        for (int y = 0; y < plain.height(); ++y)
            if (plain.pixel(x, y) != underlined.pixel(x, y)) {
                if (first < 0) first = x;
                EXPECT_LE(x - last, last < 0 ? x + 1 : 1);
                last = x;
            }
    EXPECT_NEAR(first, 100, 1);
    EXPECT_NEAR(last, (run.xs[2] + run.run.face->width(U'b')) / 2, 2);
}

TEST(PageSpool, PlaysWhatItWasTold) {
    FontMeter meter;
    RecordingPrinters printers({standPrinter(u"Irodai nyomtató"_s)});
    PageSpool spool;
    RecordingPage straight;
    const QString odd = u"ő😀é漢x"_s + QChar(0xDC00) + QChar(0xD83D) + u"😀😀."_s;
    Line natural(meter, odd, 100.1, 200), stretched(meter, odd, 100.1, 500, 0.7);
    stretched.run.underline = true;
    stretched.run.color = -5;
    for (PageTarget* page : {static_cast<PageTarget*>(&spool), static_cast<PageTarget*>(&straight)}) {
        page->text(natural.run);
        page->text(stretched.run);
        page->rule(1, 2, 3, 4, 5);
        page->box(1, 2, 3, 4, -1, 6, 7);
    }
    spool.newPage();
    spool.newPage();
    const auto job = printers.begin(a4);
    spool.play(*job);
    job->endDoc();
    ASSERT_EQ(printers.jobs.front()->pages.size(), 2U);
    const RecordingPage& played = printers.jobs.front()->pages.front();
    EXPECT_TRUE(printers.jobs.front()->pages.back().isEmpty());
    ASSERT_EQ(played.texts.size(), 2U);
    for (std::size_t at = 0; at < 2; ++at) {
        EXPECT_EQ(played.texts[at].text, odd);
        EXPECT_EQ(played.texts[at].xs, straight.texts[at].xs);
        EXPECT_EQ(played.texts[at].y, straight.texts[at].y);
        EXPECT_EQ(played.texts[at].font, times);
        EXPECT_EQ(played.texts[at].underline, straight.texts[at].underline);
        EXPECT_EQ(played.texts[at].color, straight.texts[at].color);
    }
    EXPECT_EQ(played.rules, straight.rules);
    EXPECT_EQ(played.boxes, straight.boxes);
}

} // namespace vandrel::test
