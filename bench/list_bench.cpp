#include "list_bench.h"

#include "child.h"
#include "list_text.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>

using namespace Qt::StringLiterals;

namespace vandrel::bench {

namespace {

std::vector<double> run(const QString& folder, const QStringList& words) {
    std::vector<double> figures;
    const QStringList printed =
        runChild(ownProgram(), QStringList{u"--list"_s} + words, folder).output.split(u' ');
    std::fprintf(stderr, "%s: %s\n", qUtf8Printable(words.first()), qUtf8Printable(printed.join(u' ')));
    for (const QString& figure : printed)
        figures.push_back(figure.toDouble());
    return figures;
}

// A writer that loses pages tells nobody: what can be read from the file is counted.
void requireAllSheets(const QString& folder, const QString& pdf, int sheets) {
    const QString found =
        runChild(u"/bin/sh"_s, {u"-c"_s, u"pdftotext \"$0\" - | grep -c \"$1\" || true"_s, pdf, sheetMark},
                 folder)
            .output.trimmed();
    if (found.toInt() == sheets) return;
    std::fprintf(stderr, "%s has %s sheets instead of %d\n", qUtf8Printable(pdf), qUtf8Printable(found),
                 sheets);
    std::exit(1);
}

QString megabytes(const std::vector<double>& values) {
    return QString::number(median(values), 'f', 1) + u" MB"_s;
}
QString milliseconds(double seconds) {
    return QString::number(seconds * 1000, 'f', 1) + u" ms"_s;
}

void add(Pairs& pairs, double program, double floor) {
    pairs.program.push_back(program);
    pairs.floor.push_back(floor);
}

void measureDocument(Table& table, const QString& folder, int sheets, int rounds) {
    const QString name = u"list of %1 sheets"_s.arg(QLocale(QLocale::English).toString(sheets));
    const QString count = QString::number(sheets);
    const QString seconds = u"s"_s;
    Pairs layout, layoutOfDocument, painting, writing, whole, memory, size;
    std::vector<double> build, paginate, before, peakOfLayout, peak, pagesASecond, elapsed;
    double pages = 0, pagesOfDocument = 0;
    constexpr std::array pdfs = {"engine.pdf", "paint.pdf", "document.pdf"};
    std::array<qint64, 3> sizes{};
    for (int round = 0; round < rounds; ++round) {
        std::fprintf(stderr, "%s, round %d\n", qUtf8Printable(name), round + 1);
        // engine: build, paginate, write, pages, floor of the layout, memory before, after layout, peak,
        // elapsed time of the writing
        const auto ours = run(folder, {u"engine"_s, count, u"engine.pdf"_s});
        const auto bare = run(folder, {u"paint"_s, count, u"paint.pdf"_s});
        // document: build, paginate, write, pages, memory before, peak
        const auto rich = run(folder, {u"document"_s, count, u"document.pdf"_s});
        if (bare[1] != ours[3]) std::abort();
        for (std::size_t i = 0; i < pdfs.size(); ++i) {
            const qint64 bytes = QFileInfo(QDir(folder).filePath(QLatin1StringView(pdfs[i]))).size();
            // Reading a PDF takes longer than writing it, and the files of all rounds are the same.
            if (round == rounds - 1) requireAllSheets(folder, QLatin1StringView(pdfs[i]), sheets);
            if (round > 0 && bytes != sizes[i]) {
                std::fprintf(stderr, "%s differs from round to round\n", pdfs[i]);
                std::exit(1);
            }
            sizes[i] = bytes;
            QFile::remove(QDir(folder).filePath(QLatin1StringView(pdfs[i])));
        }
        pages = ours[3];
        pagesOfDocument = rich[3];
        build.push_back(ours[0]);
        paginate.push_back(ours[1]);
        before.push_back(ours[5]);
        peakOfLayout.push_back(ours[6]);
        peak.push_back(ours[7]);
        pagesASecond.push_back(pages / ours[2]);
        add(layout, ours[0] + ours[1], ours[4]);
        add(layoutOfDocument, ours[0] + ours[1], rich[0] + rich[1]);
        add(painting, ours[2], bare[0]);
        add(writing, ours[2], rich[2]);
        add(whole, ours[0] + ours[1] + ours[2], rich[0] + rich[1] + rich[2]);
        add(memory, ours[7], rich[5]);
        add(size, static_cast<double>(sizes[0]) / 1e6, static_cast<double>(sizes[1]) / 1e6);
        elapsed.push_back(ours[8]);
    }
    const auto shown = [](const std::vector<double>& values) {
        return QString::number(median(values), 'f', 3) + u" s"_s;
    };
    const bool large = sheets >= 100'000;
    const auto aim = [large](const char* text) { return large ? QString::fromLatin1(text) : QString(); };
    table.single(name + u": pages (rich text: %1)"_s.arg(pagesOfDocument), QString::number(pages));
    table.single(name + u": build"_s, shown(build));
    table.single(name + u": paginate"_s, shown(paginate));
    table.pairs(name + u": layout (both) / sum of widths"_s, layout, u"ms"_s, 1000, aim("1000 ms"));
    table.pairs(name + u": layout / rich text's"_s, layoutOfDocument, u"ms"_s, 1000);
    table.pairs(name + u": PDF / bare painting of the strings"_s, painting, seconds, 1, u"ratio 1.1"_s);
    table.pairs(name + u": PDF / rich text's"_s, writing, seconds, 1);
    table.pairs(name + u": layout and PDF / rich text's"_s, whole, seconds, 1, u"ratio 0.4"_s);
    table.single(name + u": PDF, elapsed"_s, shown(elapsed));
    table.single(name + u": pages a second, processor time"_s, QString::number(median(pagesASecond), 'f', 0));
    table.pairs(name + u": size of the PDF / bare painting's"_s, size, u"MB"_s, 1);
    table.pairs(name + u": peak memory / rich text's"_s, memory, u"MB"_s, 1, u"150 MB"_s);
    table.single(name + u": memory before it"_s, megabytes(before));
    table.single(name + u": peak after the layout"_s, megabytes(peakOfLayout));
}

} // namespace

void measureLists(Table& table, const QString& workFolder, int rounds) {
    QDir().mkpath(workFolder);
    for (const int sheets : {10'000, 100'000})
        measureDocument(table, workFolder, sheets, rounds);
}

void measurePreview(Table& table, const QString& folder, int rounds) {
    constexpr int sheets = 100'000;
    QDir().mkpath(folder);
    const QString name = u"preview of %1 sheets"_s.arg(QLocale(QLocale::English).toString(sheets));
    std::vector<std::vector<double>> columns(11);
    for (int round = 0; round < rounds; ++round) {
        const auto figures = run(folder, {u"preview"_s, QString::number(sheets)});
        for (std::size_t i = 0; i < columns.size(); ++i)
            columns[i].push_back(figures.at(i));
    }
    const auto page = [&](const char* what, std::size_t column, const char* aim = "30 ms") {
        table.single(name + u": "_s + QString::fromUtf8(what), milliseconds(median(columns[column])),
                     QLatin1StringView(aim));
    };
    page("first page, the first time", 1);
    page("middle page, after a new pagination", 2);
    page("last page, the first time", 3);
    page("first page again", 4);
    page("middle page again", 5);
    page("last page again", 6);
    page("50 pages at random, median", 7);
    page("50 pages at random, worst", 8);
    page("the same pages again, median", 9);
    page("the same pages again, worst", 10);
}

void measureStoredList(Table& table, const QString& clinic, const QString& folder, int rounds) {
    QDir().mkpath(folder);
    const QString name = u"list of the 100,000 stored sheets"_s;
    Pairs made, paged, memory;
    std::vector<double> before, elapsed;
    for (int round = 0; round <= rounds; ++round) {
        // both: seconds, texts, their checksum; then the program: memory before and peak, seconds with the
        // pages, pages, elapsed; the floor: peak
        const QStringList ours =
            runChild(ownProgram(), {u"--list"_s, u"stored"_s, clinic, storedFrom, storedTo}, folder)
                .output.split(u' ');
        const QStringList floor = runChild(neighbour(u"vandrel-floor-list"_s),
                                           {clinic, storedFrom, storedTo, u"2008.04.03."_s}, folder)
                                      .output.split(u' ');
        if (ours[1] != floor[1] || ours[2] != floor[2] || ours[1].toInt() < 400'000) {
            std::fprintf(stderr, "the texts of the list differ from the floor's\n");
            std::exit(1);
        }
        if (round == 0) continue; // the machine's file cache was filled
        add(made, ours[0].toDouble(), floor[0].toDouble());
        add(paged, ours[5].toDouble(), floor[0].toDouble());
        add(memory, ours[4].toDouble(), floor[3].toDouble() / 1024);
        before.push_back(ours[3].toDouble());
        elapsed.push_back(ours[7].toDouble());
    }
    table.pairs(name + u" / reading the rows in C"_s, made, u"s"_s, 1);
    table.pairs(name + u", all pages found / the same"_s, paged, u"s"_s, 1);
    table.single(name + u", all pages found, elapsed"_s, QString::number(median(elapsed), 'f', 1) + u" s"_s);
    table.pairs(name + u": peak memory / floor's"_s, memory, u"MB"_s, 1, u"150 MB"_s);
    table.single(name + u": memory before it"_s, megabytes(before));

    // The longest list of all: a line for each procedure, with its name.
    const QStringList longest =
        runChild(ownProgram(), {u"--list"_s, u"referrers"_s, clinic, storedFrom, storedTo}, folder)
            .output.split(u' ');
    const QString its = u"itemised list of the referrers of the same"_s;
    table.single(its + u", all pages found"_s, QString::number(longest[5].toDouble(), 'f', 1) + u" s"_s);
    table.single(its + u": pages"_s, longest[6]);
    table.single(its + u": peak memory"_s, longest[4] + u" MB"_s);
}

} // namespace vandrel::bench
