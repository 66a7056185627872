// The printers as the engine sees them: a collection of names, what paper each has, and print jobs.
// The program uses the platform's printers, the tests a recording.
#pragma once

#include "print/page_target.h"

#include <QString>

#include <memory>
#include <vector>

namespace vandrel {

struct PrinterEntry {
    QString deviceName;
    QString port;
};

// Portrait paper of a printer.
struct PrinterPaper {
    long code = 9;         // paper size code; 9 is A4
    double width = 11906;  // twips; A4
    double height = 16838; // twips
    bool turns = true;     // the printer can print landscape
    double twipsPerPixelY = 2.4;
};

namespace orientation {
inline constexpr long portrait = 1;
inline constexpr long landscape = 2;
} // namespace orientation

struct PrintJobSetup {
    int printer = 0;
    long orientation = orientation::portrait;
    double width = 0; // twips, as turned
    double height = 0;
    QString title; // name of the job
};

// One document on its way to paper. Destroyed without endDoc() it leaves nothing: no paper, no file.
class PrintJob {
  public:
    virtual ~PrintJob() = default;

    // The page being drawn.
    virtual PageTarget& page() = 0;
    // Ends the page. Several in a row give empty pages; one that is followed by endDoc() gives none.
    virtual void newPage() = 0;
    // Brings the document out. Faults: the printer's or the file's.
    virtual void endDoc() = 0;
};

class PrintService {
  public:
    virtual ~PrintService() = default;

    // Counted from 0. Empty: there is no printer at all.
    virtual std::vector<PrinterEntry> printers() const = 0;
    virtual int defaultPrinter() const = 0; // 0 when there is none
    // A printer that is not there (any more) has the paper of the default one, or A4.
    virtual PrinterPaper paper(int printer) const = 0;
    // Null: the user has given up (no file name chosen). Fault noPrinter when the printer is not there.
    virtual std::unique_ptr<PrintJob> begin(const PrintJobSetup& setup) = 0;
};

} // namespace vandrel
