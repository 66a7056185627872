// The processes whose time and memory list_bench.cpp compares: one does one thing and prints its figures.
#include "child.h"
#include "foundation/file_checks.h"
#include "list_bench.h"
#include "list_text.h"

#include "platform/clock.h"
#include "print/font_meter.h"
#include "print/page_painter.h"
#include "print/pdf_file.h"
#include "statistics/list_runner.h"

#include <QAbstractTextDocumentLayout>
#include <QGuiApplication>
#include <QImage>
#include <QPdfWriter>
#include <QScreen>
#include <QTextBlockFormat>
#include <QTextCursor>
#include <QTextDocument>
#include <QTextFrame>

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>

using namespace Qt::StringLiterals;

namespace vandrel::bench {

namespace {

constexpr double twipsOfMillimetre = 56.7;

[[noreturn]] void fail(const char* why) {
    std::fprintf(stderr, "%s\n", why);
    std::exit(1);
}

// One printer, which is a PDF file.
class PdfService : public PrintService {
  public:
    explicit PdfService(QString path) : m_path(std::move(path)) {}
    std::vector<PrinterEntry> printers() const override { return {{u"PDF"_s, {}}}; }
    int defaultPrinter() const override { return 0; }
    PrinterPaper paper(int) const override { return {}; }
    std::unique_ptr<PrintJob> begin(const PrintJobSetup& setup) override {
        return std::make_unique<PdfJob>(m_path, setup);
    }

  private:
    QString m_path;
};

// The least that layout can be: it walks a text once, sums widths from an array, starts anew at a tab stop,
// and counts the lines.
class WidthWalk {
  public:
    WidthWalk(TextMeter& meter, double room) : m_room(static_cast<float>(room)) {
        const Face& face = meter.face({listFont, listFontSize, false, false});
        for (std::size_t i = 0; i < m_widths.size(); ++i)
            m_widths[i] = static_cast<float>(face.width(static_cast<char32_t>(i)));
    }
    void walk(const QString& text) {
        const auto* at = reinterpret_cast<const char16_t*>(text.utf16());
        const char16_t* const end = at + text.size();
        float sum = 0;
        ++lines;
        while (at < end) {
            const char16_t unit = *at++;
            if (unit == u'<') {
                int value = 0;
                const bool stop = *at == u'L';
                for (; *at != u'>'; ++at)
                    if (*at >= u'0' && *at <= u'9') value = value * 10 + (*at - u'0');
                ++at;
                if (stop) sum = static_cast<float>(value * twipsOfMillimetre);
                continue;
            }
            const float width = m_widths[unit];
            sum += width;
            if (sum > m_room) {
                ++lines;
                sum = width;
            }
        }
    }
    qint64 lines = 0;

  private:
    float m_room;
    std::array<float, 0x250> m_widths;
};

// A document of the list and what it took to build it.
struct List {
    explicit List(const QString& pdf = {}) : service(pdf) { prepareDocument(document); }

    void build(int sheets, WidthWalk* floor = nullptr) {
        TrafficLogTexts texts(sheets);
        std::vector<QString> batch;
        const TextLook look = listLook();
        while (texts.next(batch)) {
            if (floor != nullptr) {
                const ProcessorWatch watch;
                for (const QString& text : batch)
                    floor->walk(text);
                floorSeconds += watch.seconds();
            }
            const ProcessorWatch watch;
            for (const QString& text : batch)
                document.AddText(text, look);
            buildSeconds += watch.seconds();
        }
    }

    PdfService service;
    FontMeter meter;
    FixedClock clock{QDateTime(QDate(2008, 4, 3), QTime(14, 5, 9))};
    PrintEngine engine{meter, service, clock};
    qcPrinter document{engine};
    double buildSeconds = 0;
    double floorSeconds = 0;
};

int engineChild(int sheets, const QString& pdf) {
    List list(pdf);
    list.meter.face({listFont, listFontSize, false, false}).width(u'a');
    const double before = peakMegabytes();
    const PaperSize paper = list.engine.printer.size();
    WidthWalk floor(list.meter, paper.width - (listMarginLeft + listMargin) * twipsOfMillimetre);
    list.build(sheets, &floor);
    const ProcessorWatch paginating;
    const int pages = list.document.Pages();
    const double paginated = paginating.seconds();
    const double peakOfLayout = peakMegabytes();
    const Stopwatch elapsing;
    const ProcessorWatch writing;
    if (!list.document.PrintDoc(1, pages, 1, true, 0)) fail("the document was not printed");
    const double written = writing.seconds();
    const double elapsed = elapsing.seconds();
    const double peak = peakMegabytes();
    qint64 lines = 0;
    for (const qcTextItem& item : list.document.TextItem())
        lines += item.LineCount();
    if (lines != floor.lines) fail("the floor counts other lines than the engine");
    std::printf("%.6f %.6f %.6f %d %.6f %.1f %.1f %.1f %.6f", list.buildSeconds, paginated, written, pages,
                list.floorSeconds, before, peakOfLayout, peak, elapsed);
    return 0;
}

// What the engine draws on a page, kept as the strings that it is made of.
class Strings : public PageTarget {
  public:
    struct Run {
        QString text;
        QPointF place; // of its base line
        const Face* face;
    };
    std::vector<Run> runs;

    void text(const TextRun& run) override {
        if (!run.xs.empty())
            runs.push_back({run.text.toString(), {run.xs.front(), run.y + run.face->ascent()}, run.face});
    }
    void rule(double, double, double, double, long) override { fail("the list has no rules"); }
    void box(double, double, double, double, long, double, long) override { fail("the list has no boxes"); }
};

QFont plainFont(const FontChoice& choice) {
    QFont font(u"Liberation Serif"_s);
    font.setPixelSize(static_cast<int>(choice.size * 20));
    font.setBold(choice.bold);
    font.setKerning(false);
    return font;
}

// Bare painting: the strings of one page after another, by nothing but a painter.
int paintChild(int sheets, const QString& pdf) {
    List list;
    list.build(sheets);
    const int pages = list.document.Pages();
    std::map<const Face*, QFont> fonts;
    Strings strings;
    double seconds = 0;

    ProcessorWatch watch;
    QPdfWriter writer(pdf);
    writer.setResolution(1440);
    writer.setPageLayout(QPageLayout(QPageSize(QPageSize::A4), QPageLayout::Portrait, QMarginsF()));
    QPainter painter;
    if (!painter.begin(&writer)) fail("no PDF");
    seconds += watch.seconds();
    for (int page = 1; page <= pages; ++page) {
        strings.runs.clear();
        list.document.WalkDocument(strings, page, page);
        for (const Strings::Run& run : strings.runs)
            fonts.try_emplace(run.face, plainFont(run.face->choice()));
        watch = ProcessorWatch();
        if (page > 1) writer.newPage();
        const Face* face = nullptr;
        for (const Strings::Run& run : strings.runs) {
            if (run.face != face) painter.setFont(fonts.at(face = run.face));
            painter.drawText(run.place, run.text);
        }
        seconds += watch.seconds();
    }
    watch = ProcessorWatch();
    if (!painter.end()) fail("the PDF is not whole");
    seconds += watch.seconds();
    std::printf("%.6f %d", seconds, pages);
    return 0;
}

// The same text in a rich-text document: each column begins at a tab stop.
int documentChild(int sheets, const QString& pdf) {
    const double before = peakMegabytes();
    const double dots = QGuiApplication::primaryScreen()->logicalDotsPerInch(); // as the document counts
    const auto length = [dots](double millimetres) { return millimetres / 25.4 * dots; };
    TrafficLogTexts texts(sheets);
    std::vector<QString> batch;
    std::vector<double> stops;
    double built = 0;
    QTextDocument document;
    document.setUndoRedoEnabled(false);
    QFont font(u"Liberation Serif"_s);
    font.setPointSizeF(listFontSize);
    font.setKerning(false);
    font.setHintingPreference(QFont::PreferNoHinting);
    document.setDefaultFont(font);
    QTextCursor cursor(&document);
    cursor.beginEditBlock(); // nothing is laid out meanwhile
    while (texts.next(batch)) {
        const ProcessorWatch watch;
        for (const QString& text : batch) {
            const QString plain = withTabs(text, stops);
            QTextBlockFormat format;
            QList<QTextOption::Tab> tabs;
            for (const double stop : stops)
                tabs << QTextOption::Tab(length(stop), QTextOption::LeftTab);
            format.setTabPositions(tabs);
            QTextCharFormat look;
            if (text.startsWith("<b>"_L1)) look.setFontWeight(QFont::Bold);
            cursor.insertBlock(format, look);
            cursor.insertText(plain);
        }
        built += watch.seconds();
    }
    ProcessorWatch watch;
    document.setPageSize(QSizeF(length(210), length(297)));
    QTextFrameFormat frame = document.rootFrame()->frameFormat();
    frame.setMargin(length(listMargin));
    frame.setLeftMargin(length(listMarginLeft));
    document.rootFrame()->setFrameFormat(frame);
    cursor.endEditBlock();
    const int pages = document.pageCount();
    const double paginated = watch.seconds();
    watch = ProcessorWatch();
    {
        QPdfWriter writer(pdf);
        writer.setPageLayout(QPageLayout(QPageSize(QPageSize::A4), QPageLayout::Portrait, QMarginsF()));
        document.print(&writer);
    }
    std::printf("%.6f %.6f %.6f %d %.1f %.1f", built, paginated, watch.seconds(), pages, before,
                peakMegabytes());
    return 0;
}

// The preview's pages at 96 dots an inch, each onto a fresh picture.
int previewChild(int sheets) {
    List list;
    list.build(sheets);
    const int pages = list.document.Pages();
    constexpr double scale = 96.0 / 1440;
    const PaperSize paper = list.engine.printer.size();
    const QSize size(static_cast<int>(paper.width * scale), static_cast<int>(paper.height * scale));
    qint64 dark = 0;
    const auto draw = [&](int page) {
        const Stopwatch watch;
        QImage picture(size, QImage::Format_RGB32);
        picture.fill(Qt::white);
        {
            QPainter painter(&picture);
            PagePainter target(painter, scale);
            list.document.PreviewPage(target, page);
        }
        const double seconds = watch.seconds();
        qint64 here = 0;
        for (int y = 0; y < picture.height(); ++y) {
            const auto* line = reinterpret_cast<const QRgb*>(picture.constScanLine(y));
            here += std::count_if(line, line + picture.width(), [](QRgb dot) { return qGray(dot) < 128; });
        }
        if (here == 0) fail("an empty page");
        dark += here;
        return seconds;
    };
    // A new pagination, as after a change of the margins.
    const auto forget = [&] {
        list.engine.raisePaging();
        list.document.Pages();
    };
    std::printf("%d", pages);
    const double first = draw(1);
    const double last = draw(pages);
    forget();
    std::printf(" %.6f %.6f %.6f", first, draw(pages / 2), last);
    draw(pages);
    std::printf(" %.6f %.6f %.6f", draw(1), draw(pages / 2), draw(pages));
    std::vector<int> some;
    std::uint32_t state = 7;
    for (int i = 0; i < 50; ++i) {
        state = state * 1664525 + 1013904223;
        some.push_back(1 + static_cast<int>((state >> 8) % static_cast<std::uint32_t>(pages)));
    }
    for (int visit = 0; visit < 2; ++visit) {
        std::vector<double> seconds;
        for (const int page : some)
            seconds.push_back(draw(page));
        std::printf(" %.6f %.6f", median(seconds), *std::max_element(seconds.begin(), seconds.end()));
    }
    return 0;
}

class FailingDialogue : public Dialogue {
  public:
    Answer show(const Message& message) override { fail(message.text.toUtf8().constData()); }
};

class NoPacker : public Packer {
  public:
    void start(const QString&, const QString&, const QString&) override { fail("nothing is packed"); }
    bool endsWithin(int) override { return true; }
    bool waitForFinished() override { return true; }
};

// The whole list from the stored sheets, as the statistics screen makes it, with all its pages found.
int storedChild(StatisticsList which, const QString& folder, const QString& from, const QString& to) {
    List list;
    FailingDialogue dialogue;
    NoPacker packer;
    Workstation station(folder, dialogue, list.clock, packer);
    station.serveEvents = [] { QCoreApplication::processEvents(); };
    for (const DataFile file : {DataFile::tetdata, DataFile::tetmod})
        station.files[file];
    // Read through for damage in an idle moment before.
    if (!confirmWhole(station, filesOfLists, {}, {})) std::exit(1);
    ListRequest request;
    request.allCategories = true;
    request.from = from;
    request.to = to;
    request.fromCode = u"000000000"_s;
    request.toCode = u"999999999"_s;
    const double before = peakMegabytes();
    const Stopwatch elapsing;
    const ProcessorWatch watch;
    Progress quiet;
    if (runList(station, which, request, list.document, quiet) != ListOutcome::ready)
        fail("the list was not made");
    const double run = watch.seconds();
    const int pages = list.document.Pages();
    const double all = watch.seconds();
    const double elapsed = elapsing.seconds();
    const double peak = peakMegabytes();
    std::uint64_t checksum = 14695981039346656037U;
    for (const qcTextItem& item : list.document.TextItem())
        for (const char byte : item.Text().toUtf8() + '\n')
            checksum = (checksum ^ static_cast<unsigned char>(byte)) * 1099511628211U;
    std::printf("%.6f %d %016llx %.1f %.1f %.6f %d %.6f", run, list.document.ItemCount(),
                static_cast<unsigned long long>(checksum), before, peak, all, pages, elapsed);
    return 0;
}

} // namespace

int listChild(int argc, char** argv, const QStringList& words) {
    const QGuiApplication application(argc, argv);
    if (words[0] == "stored"_L1)
        return storedChild(StatisticsList::trafficLog, words.value(1), words.value(2), words.value(3));
    if (words[0] == "referrers"_L1)
        return storedChild(StatisticsList::referrersItemised, words.value(1), words.value(2), words.value(3));
    const int sheets = words.value(1).toInt();
    if (words[0] == "engine"_L1) return engineChild(sheets, words.value(2));
    if (words[0] == "paint"_L1) return paintChild(sheets, words.value(2));
    if (words[0] == "document"_L1) return documentChild(sheets, words.value(2));
    if (words[0] == "preview"_L1) return previewChild(sheets);
    return 1;
}

} // namespace vandrel::bench
