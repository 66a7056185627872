#include "measure.h"

#include <QFile>

#include <algorithm>
#include <cstdio>

using namespace Qt::StringLiterals;

namespace vandrel::bench {

double median(std::vector<double> values) {
    std::sort(values.begin(), values.end());
    const std::size_t middle = values.size() / 2;
    return values.size() % 2 == 1 ? values[middle] : (values[middle - 1] + values[middle]) / 2;
}

double peakMegabytes() {
    QFile status(u"/proc/self/status"_s);
    if (!status.open(QIODevice::ReadOnly)) return 0;
    for (const QByteArray& line : status.readAll().split('\n'))
        if (line.startsWith("VmHWM:")) return line.mid(6).trimmed().split(' ').first().toDouble() / 1024;
    return 0;
}

double Pairs::ratio() const {
    std::vector<double> ratios;
    for (std::size_t i = 0; i < program.size(); ++i)
        ratios.push_back(program[i] / floor[i]);
    return median(ratios);
}

void Table::pairs(const QString& what, const Pairs& figures, const QString& unit, double factor,
                  const QString& aim) {
    const auto shown = [&](const std::vector<double>& values) {
        const double value = median(values) * factor;
        return QString::number(value, 'f', value < 10 ? 2 : 1) + ' '_L1 + unit;
    };
    m_rows.push_back(
        {what, shown(figures.program), shown(figures.floor), QString::number(figures.ratio(), 'f', 2), aim});
}

void Table::single(const QString& what, const QString& figure, const QString& aim) {
    m_rows.push_back({what, figure, {}, {}, aim});
}

void Table::print() const {
    const auto line = [](const QString& what, const QString& program, const QString& floor,
                         const QString& ratio, const QString& aim) {
        std::printf("| %s | %s | %s | %s | %s |\n", qUtf8Printable(what.leftJustified(66)),
                    qUtf8Printable(program.rightJustified(12)), qUtf8Printable(floor.rightJustified(12)),
                    qUtf8Printable(ratio.rightJustified(6)), qUtf8Printable(aim.leftJustified(12)));
    };
    line(u"figure"_s, u"program"_s, u"floor"_s, u"ratio"_s, u"aim"_s);
    line(QString(66, '-'_L1), QString(12, '-'_L1), QString(12, '-'_L1), QString(6, '-'_L1),
         QString(12, '-'_L1));
    for (const Row& row : m_rows)
        line(row.what, row.program, row.floor, row.ratio, row.aim);
}

} // namespace vandrel::bench
