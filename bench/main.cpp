// vandrel-bench [FOLDER [ROUNDS [start] [entry] [report] [lists] [preview] [stored]]]: makes the sample
// clinics in FOLDER where they are not there yet, measures, and prints one table.
#include "child.h"
#include "entry_bench.h"
#include "list_bench.h"
#include "measure.h"
#include "report_bench.h"
#include "sample_clinic.h"
#include "start_bench.h"
#include "sync_counter.h"

#include <QApplication>
#include <QDir>

#include <cstdio>

#include <sqlite3.h>

using namespace Qt::StringLiterals;

using namespace vandrel::bench;

int main(int argc, char** argv) {
    QStringList words;
    for (int i = 1; i < argc; ++i)
        words << QString::fromLocal8Bit(argv[i]);
    if (words.size() == 3 && words[0] == "--report"_L1) return reportChild(argc, argv, words[1], words[2]);
    if (words.size() > 2 && words[0] == "--list"_L1) {
        words.removeFirst();
        return listChild(argc, argv, words);
    }

    sqlite3_config(SQLITE_CONFIG_MEMSTATUS, 0); // as the program sets it, before the counter wakes the engine
    if (syncCounterInstall() != 0) return 1;
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    const QString folder = QDir().absoluteFilePath(words.isEmpty() ? u"bench-data"_s : words.takeFirst());
    const int rounds = words.isEmpty() ? 7 : words.takeFirst().toInt();
    const auto wanted = [&](const char* what) {
        return words.isEmpty() || words.contains(QLatin1StringView(what));
    };
    Table table;
    const QString lists = folder + u"/lists"_s;
    if (wanted("lists")) measureLists(table, lists, rounds);
    if (wanted("preview")) measurePreview(table, lists, rounds);
    if (wanted("stored")) {
        const QString clinic = QDir(folder).filePath(u"100000"_s);
        makeSampleClinic(clinic, 100'000);
        measureStoredList(table, clinic, lists, rounds);
    }
    const bool others = wanted("start") || wanted("entry") || wanted("report");
    for (const auto& [sheets, name] : {std::pair(100'000, "100,000"), std::pair(500'000, "500,000")}) {
        if (!others) break;
        const QString clinic = QDir(folder).filePath(QString::number(sheets));
        const QString size = QLatin1StringView(name);
        std::fprintf(stderr, "%s sheets\n", name);
        makeSampleClinic(clinic, sheets);
        if (wanted("start")) measureStart(table, clinic, size, rounds);
        if (wanted("entry")) measureEntry(table, clinic, size, folder + u"/copy"_s, rounds);
        if (wanted("report")) measureReport(table, clinic, size, folder + u"/floor"_s, rounds);
    }
    table.print();
    return 0;
}
