// Timing, medians and the one table of figures that is printed.
#pragma once

#include <QString>

#include <chrono>
#include <ctime>
#include <vector>

namespace vandrel::bench {

class Stopwatch {
  public:
    double seconds() const {
        return std::chrono::duration<double>(std::chrono::steady_clock::now() - m_start).count();
    }

  private:
    std::chrono::steady_clock::time_point m_start = std::chrono::steady_clock::now();
};

// The processor's time of this process: other work on the machine does not enter into it.
class ProcessorWatch {
  public:
    double seconds() const { return static_cast<double>(std::clock() - m_start) / CLOCKS_PER_SEC; }

  private:
    std::clock_t m_start = std::clock();
};

double median(std::vector<double> values); // of at least one value

// The most memory this process has had in use until now, in megabytes.
double peakMegabytes();

// Figures of the program beside those of a floor, round by round: both of a round run right after one
// another, so that a busy machine slows both.
struct Pairs {
    std::vector<double> program, floor;
    double ratio() const; // the median of the rounds' ratios
};

class Table {
  public:
    // unit: the figures' unit as it is printed, factor: from the measured unit to it.
    void pairs(const QString& what, const Pairs& figures, const QString& unit, double factor,
               const QString& aim = {});
    void single(const QString& what, const QString& figure, const QString& aim = {});
    void print() const;

  private:
    struct Row {
        QString what, program, floor, ratio, aim;
    };
    std::vector<Row> m_rows;
};

} // namespace vandrel::bench
