#include "report_bench.h"

#include "child.h"
#include "sample_clinic.h"

#include "foundation/file_checks.h"
#include "foundation/forms/masked_field.h"
#include "reports/forms/levForm.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QLabel>
#include <QPushButton>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <ctime>

using namespace Qt::StringLiterals;

namespace vandrel::bench {

namespace {

const QDateTime today(QDate(2008, 4, 3), QTime(14, 5, 9));

class FailingDialogue : public Dialogue {
  public:
    Answer show(const Message& message) override {
        std::fprintf(stderr, "box: %s\n", qUtf8Printable(message.text));
        std::exit(1);
    }
};

// The packing is another program's time.
class NoPacker : public Packer {
  public:
    void start(const QString&, const QString&, const QString&) override {}
    bool endsWithin(int) override { return true; }
    bool waitForFinished() override { return true; }
};

// What a child prints.
struct Figures {
    double seconds = 0, processor = 0, gap = 0, peakBefore = 0, peak = 0; // seconds and megabytes
    qint64 records = 0;
};

QByteArray bytesOf(const QString& path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        std::fprintf(stderr, "missing: %s\n", qUtf8Printable(path));
        std::exit(1);
    }
    return file.readAll();
}

struct Files {
    QByteArray report, note;
    bool operator==(const Files&) const = default;
};

Files filesIn(const QString& folder) {
    return {bytesOf(folder + u"/tet9012.amb"_s), bytesOf(folder + u"/kuldo.txt"_s)};
}

void removeFiles(const QString& folder) {
    for (const char* name : {"/tet9012.amb", "/kuldo.txt"})
        QFile::remove(folder + QLatin1StringView(name));
}

Figures floorRun(const QString& program, const QString& folder, const QString& month,
                 const QString& workFolder, Files& files) {
    removeFiles(workFolder);
    const QStringList words =
        runChild(neighbour(program), {folder, month, u"2008.04.03."_s}, workFolder).output.split(' '_L1);
    files = filesIn(workFolder);
    return {words[0].toDouble(),        words[3].toDouble(),  0, 0,
            words[2].toDouble() / 1024, words[1].toLongLong()};
}

Figures programRun(const QString& folder, const QString& month, Files& files) {
    removeFiles(folder);
    const QStringList words =
        runChild(ownProgram(), {u"--report"_s, folder, month}, folder).output.split(' '_L1);
    files = filesIn(folder);
    return {words[0].toDouble(), words[2].toDouble(), words[3].toDouble(),
            words[4].toDouble(), words[5].toDouble(), words[1].toLongLong()};
}

void requireSame(const Files& made, const Files& floor) {
    if (made == floor) return;
    std::fprintf(stderr, "a report's bytes differ from the first floor's\n");
    std::exit(1);
}

} // namespace

int reportChild(int argc, char** argv, const QString& folder, const QString& month) {
    const QApplication application(argc, argv);
    FailingDialogue dialogue;
    const FixedClock clock(today);
    NoPacker packer;
    Workstation station(folder, dialogue, clock, packer);
    const QString target = folder + u"/target/"_s;
    QDir().mkpath(target);
    // As on a running workstation, the files are open when the button is pressed.
    for (const DataFile file : {DataFile::tetdata, DataFile::tetseged, DataFile::beav, DataFile::tetmod})
        station.files[file];
    // Read through for damage in an idle moment before.
    if (!confirmWhole(station, filesOfReports, {}, {})) std::exit(1);

    QWidget opener;
    levForm form(station, &opener, *menuEntry("er"));
    station.reportTarget = target;
    form.open();
    QApplication::processEvents();
    for (const char* name : {"IdoszakTol", "IdoszakIg"})
        form.findChild<MaskedField*>(QLatin1StringView(name))->setValue(month);
    auto* button = form.findChild<QPushButton*>(u"Levalogatas"_s);
    const double peakBefore = peakMegabytes();

    // A gap ends when the event loop gets its turn and begins when the turn is over.
    double longest = 0;
    auto turnEnded = std::make_unique<Stopwatch>();
    const auto gapEnds = [&] { longest = std::max(longest, turnEnded->seconds()); };
    station.serveEvents = [&] {
        gapEnds();
        QApplication::processEvents();
        *turnEnded = Stopwatch();
    };
    const Stopwatch watch;
    const std::clock_t processor = std::clock();
    *turnEnded = Stopwatch();
    button->click();
    gapEnds();
    const double seconds = watch.seconds();
    const double used = static_cast<double>(std::clock() - processor) / CLOCKS_PER_SEC;
    const auto* records = form.findChild<QLabel*>(u"Output"_s);
    std::printf("%.6f %s %.6f %.6f %.1f %.1f", seconds, qPrintable(records->text()), used, longest,
                peakBefore, peakMegabytes());
    return 0;
}

void measureReport(Table& table, const QString& folder, const QString& size, const QString& workFolder,
                   int rounds) {
    QDir().mkpath(workFolder);
    double peaks[2] = {0, 0};
    for (const bool large : {false, true}) {
        const QString month = large ? largeMonth : smallMonth;
        const QString name = u"report of %1 sheets, %2 in all"_s.arg(large ? u"40,000"_s : u"8,000"_s, size);
        Pairs query, scratch, processor, peak, peakOfFloor;
        std::vector<double> gaps;
        releaseMonth(folder, month);
        for (int round = 0; round <= rounds; ++round) {
            Files floorFiles, files;
            const Figures floor1 = floorRun(u"vandrel-floor-query"_s, folder, month, workFolder, floorFiles);
            const Figures floor2 = floorRun(u"vandrel-floor-scratch"_s, folder, month, workFolder, files);
            requireSame(files, floorFiles);
            releaseMonth(folder, month);
            const Figures ours = programRun(folder, month, files);
            requireSame(files, floorFiles);
            releaseMonth(folder, month);
            if (ours.records < (large ? largeMonthSheets : smallMonthSheets) / 2)
                std::abort();         // nothing was measured
            if (round == 0) continue; // the machine's file cache was filled
            query.program.push_back(ours.seconds);
            query.floor.push_back(floor1.seconds);
            scratch.program.push_back(ours.seconds);
            scratch.floor.push_back(floor2.seconds);
            processor.program.push_back(ours.processor);
            processor.floor.push_back(floor2.processor);
            peak.program.push_back(ours.peak);
            peak.floor.push_back(ours.peakBefore);
            peakOfFloor.program.push_back(ours.peak);
            peakOfFloor.floor.push_back(floor2.peak);
            gaps.push_back(ours.gap);
        }
        table.pairs(name + u" / query and write"_s, query, u"ms"_s, 1000);
        table.pairs(name + u" / scratch rows, marks"_s, scratch, u"ms"_s, 1000, u"ratio 1.3"_s);
        table.pairs(name + u" / the same, processor time"_s, processor, u"ms"_s, 1000);
        table.pairs(name + u": peak memory / before it"_s, peak, u"MB"_s, 1);
        table.pairs(name + u": peak memory / floor's"_s, peakOfFloor, u"MB"_s, 1);
        table.single(name + u": longest wait of the window, median"_s,
                     QString::number(median(gaps) * 1000, 'f', 1) + u" ms"_s, u"50 ms"_s);
        table.single(name + u": longest wait of the window, worst"_s,
                     QString::number(*std::max_element(gaps.begin(), gaps.end()) * 1000, 'f', 1) + u" ms"_s);
        peaks[large ? 1 : 0] = median(peak.program) - median(peak.floor);
    }
    table.single(u"peak memory added by the report, 8,000 and 40,000 sheets, %1"_s.arg(size),
                 u"%1, %2 MB"_s.arg(peaks[0], 0, 'f', 1).arg(peaks[1], 0, 'f', 1), u"the same"_s);
}

} // namespace vandrel::bench
