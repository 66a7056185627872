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

namespace vandrel::bench {

namespace {

std::vector<double> run(const QString& folder, const QStringList& words) {
    std::vector<double> figures;
    const QStringList printed =
        runChild(ownProgram(), QStringList{QStringLiteral("--list")} + words, folder).output.split(u' ');
    std::fprintf(stderr, "%s: %s\n", qUtf8Printable(words.first()), qUtf8Printable(printed.join(u' ')));
    for (const QString& figure : printed)
        figures.push_back(figure.toDouble());
    return figures;
}

// A writer that loses pages tells nobody: what can be read from the file is counted.
void requireAllSheets(const QString& folder, const QString& pdf, int sheets) {
    const QString found =
        runChild(QStringLiteral("/bin/sh"),
                 {QStringLiteral("-c"), QStringLiteral("pdftotext \"$0\" - | grep -c \"$1\" || true"), pdf,
                  sheetMark},
                 folder)
            .output.trimmed();
    if (found.toInt() == sheets) return;
    std::fprintf(stderr, "%s has %s sheets instead of %d\n", qUtf8Printable(pdf), qUtf8Printable(found),
                 sheets);
    std::exit(1);
}

QString megabytes(const std::vector<double>& values) {
    return QString::number(median(values), 'f', 1) + QStringLiteral(" MB");
}
QString milliseconds(double seconds) {
    return QString::number(seconds * 1000, 'f', 1) + QStringLiteral(" ms");
}

void add(Pairs& pairs, double program, double floor) {
    pairs.program.push_back(program);
    pairs.floor.push_back(floor);
}

void measureDocument(Table& table, const QString& folder, int sheets, int rounds) {
    const QString name = QStringLiteral("list of %1 sheets").arg(QLocale(QLocale::English).toString(sheets));
    const QString count = QString::number(sheets);
    const QString seconds = QStringLiteral("s");
    Pairs layout, layoutOfDocument, painting, writing, whole, memory, size;
    std::vector<double> build, paginate, before, peakOfLayout, peak, pagesASecond, elapsed;
    double pages = 0, pagesOfDocument = 0;
    constexpr std::array pdfs = {"engine.pdf", "paint.pdf", "document.pdf"};
    std::array<qint64, 3> sizes{};
    for (int round = 0; round < rounds; ++round) {
        std::fprintf(stderr, "%s, round %d\n", qUtf8Printable(name), round + 1);
        // engine: build, paginate, write, pages, floor of the layout, memory before, after layout, peak,
        // elapsed time of the writing
        const auto ours = run(folder, {QStringLiteral("engine"), count, QStringLiteral("engine.pdf")});
        const auto bare = run(folder, {QStringLiteral("paint"), count, QStringLiteral("paint.pdf")});
        // document: build, paginate, write, pages, memory before, peak
        const auto rich = run(folder, {QStringLiteral("document"), count, QStringLiteral("document.pdf")});
        if (bare[1] != ours[3]) std::abort();
        for (std::size_t i = 0; i < pdfs.size(); ++i) {
            const qint64 bytes = QFileInfo(QDir(folder).filePath(QLatin1String(pdfs[i]))).size();
            // Reading a PDF takes longer than writing it, and the files of all rounds are the same.
            if (round == rounds - 1) requireAllSheets(folder, QLatin1String(pdfs[i]), sheets);
            if (round > 0 && bytes != sizes[i]) {
                std::fprintf(stderr, "%s differs from round to round\n", pdfs[i]);
                std::exit(1);
            }
            sizes[i] = bytes;
            QFile::remove(QDir(folder).filePath(QLatin1String(pdfs[i])));
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
        return QString::number(median(values), 'f', 3) + QStringLiteral(" s");
    };
    const bool large = sheets >= 100'000;
    const auto aim = [large](const char* text) { return large ? QString::fromLatin1(text) : QString(); };
    table.single(name + QStringLiteral(": pages (rich text: %1)").arg(pagesOfDocument),
                 QString::number(pages));
    table.single(name + QStringLiteral(": build"), shown(build));
    table.single(name + QStringLiteral(": paginate"), shown(paginate));
    table.pairs(name + QStringLiteral(": layout (both) / sum of widths"), layout, QStringLiteral("ms"), 1000,
                aim("1000 ms"));
    table.pairs(name + QStringLiteral(": layout / rich text's"), layoutOfDocument, QStringLiteral("ms"),
                1000);
    table.pairs(name + QStringLiteral(": PDF / bare painting of the strings"), painting, seconds, 1,
                QStringLiteral("ratio 1.1"));
    table.pairs(name + QStringLiteral(": PDF / rich text's"), writing, seconds, 1);
    table.pairs(name + QStringLiteral(": layout and PDF / rich text's"), whole, seconds, 1,
                QStringLiteral("ratio 0.4"));
    table.single(name + QStringLiteral(": PDF, elapsed"), shown(elapsed));
    table.single(name + QStringLiteral(": pages a second, processor time"),
                 QString::number(median(pagesASecond), 'f', 0));
    table.pairs(name + QStringLiteral(": size of the PDF / bare painting's"), size, QStringLiteral("MB"), 1);
    table.pairs(name + QStringLiteral(": peak memory / rich text's"), memory, QStringLiteral("MB"), 1,
                QStringLiteral("150 MB"));
    table.single(name + QStringLiteral(": memory before it"), megabytes(before));
    table.single(name + QStringLiteral(": peak after the layout"), megabytes(peakOfLayout));
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
    const QString name =
        QStringLiteral("preview of %1 sheets").arg(QLocale(QLocale::English).toString(sheets));
    std::vector<std::vector<double>> columns(11);
    for (int round = 0; round < rounds; ++round) {
        const auto figures = run(folder, {QStringLiteral("preview"), QString::number(sheets)});
        for (std::size_t i = 0; i < columns.size(); ++i)
            columns[i].push_back(figures.at(i));
    }
    const auto page = [&](const char* what, std::size_t column, const char* aim = "30 ms") {
        table.single(name + QStringLiteral(": ") + QString::fromUtf8(what),
                     milliseconds(median(columns[column])), QLatin1String(aim));
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
    const QString name = QStringLiteral("list of the 100,000 stored sheets");
    Pairs made, paged, memory;
    std::vector<double> before, elapsed;
    for (int round = 0; round <= rounds; ++round) {
        // both: seconds, texts, their checksum; then the program: memory before and peak, seconds with the
        // pages, pages, elapsed; the floor: peak
        const QStringList ours =
            runChild(ownProgram(),
                     {QStringLiteral("--list"), QStringLiteral("stored"), clinic, storedFrom, storedTo},
                     folder)
                .output.split(u' ');
        const QStringList floor =
            runChild(neighbour(QStringLiteral("vandrel-floor-list")),
                     {clinic, storedFrom, storedTo, QStringLiteral("2008.04.03.")}, folder)
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
    table.pairs(name + QStringLiteral(" / reading the rows in C"), made, QStringLiteral("s"), 1);
    table.pairs(name + QStringLiteral(", all pages found / the same"), paged, QStringLiteral("s"), 1);
    table.single(name + QStringLiteral(", all pages found, elapsed"),
                 QString::number(median(elapsed), 'f', 1) + QStringLiteral(" s"));
    table.pairs(name + QStringLiteral(": peak memory / floor's"), memory, QStringLiteral("MB"), 1,
                QStringLiteral("150 MB"));
    table.single(name + QStringLiteral(": memory before it"), megabytes(before));

    // The longest list of all: a line for each procedure, with its name.
    const QStringList longest =
        runChild(ownProgram(),
                 {QStringLiteral("--list"), QStringLiteral("referrers"), clinic, storedFrom, storedTo},
                 folder)
            .output.split(u' ');
    const QString its = QStringLiteral("itemised list of the referrers of the same");
    table.single(its + QStringLiteral(", all pages found"),
                 QString::number(longest[5].toDouble(), 'f', 1) + QStringLiteral(" s"));
    table.single(its + QStringLiteral(": pages"), longest[6]);
    table.single(its + QStringLiteral(": peak memory"), longest[4] + QStringLiteral(" MB"));
}

} // namespace vandrel::bench
