// A print engine for tests, the same on every machine: a meter with fixed widths, a page that records what is
// drawn on it, and printers that exist only in the test and can fail when they are told to.
#pragma once

#include "platform/fault.h"
#include "print/print_engine.h"

#include <QStringList>

#include <cmath>
#include <memory>
#include <utility>
#include <vector>

namespace vandrel::test {

using namespace Qt::StringLiterals;

// Twips at 10 points: a character is 100 wide, i and l 50, m and W 150, a wide far letter (an ideograph, a
// pair) 200; bold adds a fifth, a font whose name begins with "Courier" makes all alike 120. A line is 240
// high, its base line 180 below its top. All of it grows with the size; italic changes nothing.
class FixedMeter : public TextMeter {
  protected:
    class FixedFace : public Face {
      public:
        explicit FixedFace(const FontChoice& choice)
            : Face(choice, 24.0 * usableFontSize(choice.size), 18.0 * usableFontSize(choice.size)) {}

      protected:
        double measure(char32_t character) const override {
            double width = 100;
            if (choice().name.startsWith("Courier"_L1, Qt::CaseInsensitive))
                width = 120;
            else if (character == U'i' || character == U'l')
                width = 50;
            else if (character == U'm' || character == U'W')
                width = 150;
            else if (character >= 0x3000)
                width = 200;
            if (choice().bold) width *= 1.2;
            return width * usableFontSize(choice().size) / 10;
        }
    };

    std::unique_ptr<Face> makeFace(const FontChoice& choice) override {
        return std::make_unique<FixedFace>(choice);
    }
};

// A page that keeps what is drawn on it, in its order.
class RecordingPage : public PageTarget {
  public:
    struct Text {
        QString text;
        std::vector<double> xs; // left edge of every UTF-16 unit
        double y = 0;
        FontChoice font;
        bool underline = false;
        long color = 0;
        bool natural = true;
        double end = 0; // right edge

        double x() const { return xs.empty() ? 0 : xs.front(); }
    };
    struct Rule {
        double left = 0, right = 0, y = 0, width = 0;
        long color = 0;
        bool operator==(const Rule&) const = default;
    };
    struct Box {
        double left = 0, top = 0, right = 0, bottom = 0;
        long fill = -1;
        double outline = 0;
        long color = 0;
        bool operator==(const Box&) const = default;
    };
    // One drawn character (a surrogate pair is one). Runs may be cut anywhere; characters may not.
    struct Drawn {
        QString character;
        double x = 0, y = 0;
        FontChoice font;
        bool underline = false;
        long color = 0;
    };

    std::vector<Text> texts;
    std::vector<Rule> rules;
    std::vector<Box> boxes;

    void text(const TextRun& run) override {
        texts.push_back({run.text.toString(),
                         {run.xs.begin(), run.xs.end()},
                         run.y,
                         run.face->choice(),
                         run.underline,
                         run.color,
                         run.natural,
                         run.xs.empty() ? 0 : run.xs.back() + run.face->width(run.text.right(1))});
    }
    void rule(double left, double right, double y, double width, long color) override {
        rules.push_back({left, right, y, width, color});
    }
    void box(double left, double top, double right, double bottom, long fill, double outline,
             long color) override {
        boxes.push_back({left, top, right, bottom, fill, outline, color});
    }

    bool isEmpty() const { return texts.empty() && rules.empty() && boxes.empty(); }
    std::vector<Drawn> characters() const {
        std::vector<Drawn> all;
        for (const Text& run : texts)
            for (qsizetype at = 0; at < run.text.size(); ++at) {
                const bool pair = run.text[at].isHighSurrogate() && at + 1 < run.text.size() &&
                                  run.text[at + 1].isLowSurrogate();
                all.push_back({run.text.mid(at, pair ? 2 : 1), run.xs.at(static_cast<std::size_t>(at)), run.y,
                               run.font, run.underline, run.color});
                if (pair) ++at;
            }
        return all;
    }
    // "x,y text" for every stretch of characters that follow each other on one line without a gap, whatever
    // their fonts. Blanks at a stretch's end are cut off, stretches of blanks alone are left out.
    QStringList stretches() const {
        QStringList all;
        QString open;
        const auto close = [&](const Text& first) {
            while (open.endsWith(' '_L1))
                open.chop(1);
            if (!open.isEmpty()) all << u"%1,%2 %3"_s.arg(first.x()).arg(first.y).arg(open);
            open.clear();
        };
        const Text* first = nullptr;
        for (std::size_t at = 0; at < texts.size(); ++at) {
            const Text& run = texts[at];
            if (first && (run.y != first->y || std::abs(run.x() - texts[at - 1].end) > 0.01)) {
                close(*first);
                first = nullptr;
            }
            if (!first) first = &run;
            open += run.text;
        }
        if (first) close(*first);
        return all;
    }
    // All drawn texts in their order, without a word about where.
    QString allText() const {
        QString all;
        for (const Text& run : texts)
            all += run.text;
        return all;
    }
};

// A printer of the stand and what shall go wrong with it.
struct StandPrinter {
    PrinterEntry entry;
    PrinterPaper paper;
    bool vanished = false; // listed, but not there when a job begins
    bool givenUp = false;  // the user chooses no file name
    int faultyPage = 0;    // its end is a fault of the device; 0: none
};

class RecordingPrinters : public PrintService {
  public:
    struct Job {
        PrintJobSetup setup;
        std::vector<RecordingPage> pages; // the ended ones, and after endDoc one that was begun
        bool ended = false;               // false with an ended object: broken off, nothing came out
    };

    explicit RecordingPrinters(std::vector<StandPrinter> all, int first = 0)
        : entries(std::move(all)), m_default(first) {}

    std::vector<StandPrinter> entries;
    std::vector<std::shared_ptr<Job>> jobs; // every one that was begun

    std::vector<PrinterEntry> printers() const override {
        std::vector<PrinterEntry> all;
        for (const StandPrinter& printer : entries)
            all.push_back(printer.entry);
        return all;
    }
    int defaultPrinter() const override { return m_default; }
    PrinterPaper paper(int printer) const override {
        if (const StandPrinter* found = find(printer)) return found->paper;
        if (const StandPrinter* found = find(m_default)) return found->paper;
        return {};
    }
    std::unique_ptr<PrintJob> begin(const PrintJobSetup& setup) override {
        const StandPrinter* printer = find(setup.printer);
        if (!printer || printer->vanished) throw Fault(fault::noPrinter, u"A nyomtató nem érhető el."_s);
        if (printer->givenUp) return nullptr;
        jobs.push_back(std::make_shared<Job>());
        jobs.back()->setup = setup;
        return std::make_unique<Recorder>(jobs.back(), printer->faultyPage);
    }

  private:
    class Recorder : public PrintJob {
      public:
        Recorder(std::shared_ptr<Job> job, int faultyPage) : m_job(std::move(job)), m_faulty(faultyPage) {}
        PageTarget& page() override { return m_page; }
        void newPage() override {
            if (static_cast<int>(m_job->pages.size()) + 1 == m_faulty)
                throw Fault(fault::deviceError, u"A nyomtató hibát jelzett."_s);
            m_job->pages.push_back(std::exchange(m_page, {}));
        }
        void endDoc() override {
            if (!m_page.isEmpty()) newPage();
            m_job->ended = true;
        }

      private:
        std::shared_ptr<Job> m_job;
        int m_faulty;
        RecordingPage m_page;
    };

    const StandPrinter* find(int number) const {
        return number >= 0 && number < static_cast<int>(entries.size())
                   ? &entries[static_cast<std::size_t>(number)]
                   : nullptr;
    }

    int m_default;
};

inline StandPrinter standPrinter(const QString& name, double width = 11906, double height = 16838) {
    return {{name, u"LPT1:"_s}, {9, width, height, true, 2.4}};
}

// The engine on all of it. 2008.04.03. 14:05:09.
struct PrintStand {
    PrintStand() : PrintStand({standPrinter(u"Irodai nyomtató"_s)}) {}
    explicit PrintStand(std::vector<StandPrinter> all, int first = 0) : printers(std::move(all), first) {}
    // One printer with this paper, in twips.
    PrintStand(double width, double height)
        : PrintStand({standPrinter(u"Irodai nyomtató"_s, width, height)}) {}

    FixedMeter meter;
    RecordingPrinters printers;
    FixedClock clock{QDateTime(QDate(2008, 4, 3), QTime(14, 5, 9))};
    PrintEngine engine{meter, printers, clock};
};

} // namespace vandrel::test
