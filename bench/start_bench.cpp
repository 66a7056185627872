#include "start_bench.h"

#include "child.h"

#include <QDir>
#include <QFile>

#include <cstdio>
#include <cstdlib>

using namespace Qt::StringLiterals;

namespace vandrel::bench {

void measureStart(Table& table, const QString& clinic, const QString& size, int rounds) {
    // The program works in the folder of its executable.
    const QString program = QDir(clinic).filePath(u"start"_s);
    QFile::remove(program);
    if (!QFile::copy(neighbour(u"vandrel-bench-start"_s), program)) std::exit(1);
    Pairs pairs;
    for (int round = 0; round <= rounds * 3; ++round) {
        const ChildResult ours = runChild(program, {}, clinic);
        const ChildResult floor = runChild(neighbour(u"vandrel-floor-window"_s), {}, clinic);
        if (!ours.output.contains(u"tetindul")) {
            std::fprintf(stderr, "another window came first: %s\n", qUtf8Printable(ours.output));
            std::exit(1);
        }
        if (round == 0) continue;
        pairs.program.push_back(ours.toFirstByte);
        pairs.floor.push_back(floor.toFirstByte);
    }
    QFile::remove(program);
    table.pairs(u"start to the first painted window, %1 sheets"_s.arg(size), pairs, u"ms"_s, 1000);
}

} // namespace vandrel::bench
