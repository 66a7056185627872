// What all documents share: the printer in use, the page geometry, the one repagination flag, and the ports
// to the preview window. There is one in a program: only one document may be laid out at a time.
#pragma once

#include "platform/clock.h"
#include "print/length_units.h"
#include "print/print_service.h"
#include "print/text_meter.h"

#include <array>
#include <functional>

namespace vandrel {

class qcPrinter;

// The printer in use as layout sees it.
class CurrentPrinter {
  public:
    explicit CurrentPrinter(const PrintService& service) : m_service(service) {
        use(service.defaultPrinter());
    }

    // Takes the printer of that number; its paper lies as before, if the printer turns it.
    void use(int number);
    int number() const { return m_number; }
    long paperCode() const { return m_paper.code; }
    PaperSize size() const { return m_size; } // as it lies now
    void setSize(const PaperSize& size) { m_size = size; }
    long orientation() const { return m_orientation; }
    // Swaps width and height, if the printer turns its paper; otherwise nothing happens.
    void setOrientation(long orientation);
    double twipsPerPixelY() const { return m_paper.twipsPerPixelY; }

  private:
    const PrintService& m_service;
    int m_number = 0;
    PrinterPaper m_paper;
    PaperSize m_size;
    long m_orientation = orientation::portrait;
};

struct PrintEngine {
    PrintEngine(TextMeter& meterToUse, PrintService& serviceToUse, const Clock& clockToUse)
        : meter(meterToUse), service(serviceToUse), clock(clockToUse), printer(serviceToUse) {}
    PrintEngine(const PrintEngine&) = delete;
    PrintEngine& operator=(const PrintEngine&) = delete;

    TextMeter& meter;
    PrintService& service;
    const Clock& clock;
    CurrentPrinter printer;

    // One flag for all documents. Cleared only by Pages.
    bool NeedsPaging = true;
    // Told by every write that has to bring a new pagination.
    void raisePaging() {
        NeedsPaging = true;
        ++writes;
    }
    // Told by the other writes that move lines where they are drawn: the pagination stays as it is.
    void linesMoved() { ++writes; }
    unsigned writes = 0; // what was found out before the last one may not hold any more
    // Names the paper, its pixels and the side margins as they are now: what was measured under another name
    // has to be measured again. Never 0.
    unsigned geometry();

    // In twips. The margins are those of the document that was handled last.
    PaperSize paper;
    double marginLeft = 1440;
    double marginRight = 1440;
    double marginTop = 1440;
    double marginBottom = 1440;
    double headerHeight = 0; // on the page being handled
    double footerHeight = 0;

    double printableWidth() const { return paper.width - marginLeft - marginRight; }
    double printableHeight() const { return paper.height - marginTop - marginBottom; }
    double bodyHeight() const { return printableHeight() - headerHeight - footerHeight; }

    // Ports to the windows; empty ones are allowed.
    std::function<void(qcPrinter&)> showPreview; // shows frmPreview modally
    // Prints the whole document on the printer in use, with progress; faults are told. False: nothing came
    // out.
    std::function<bool(qcPrinter&)> printAtOnce;
    std::function<void(bool)> busy; // hourglass on, off
    // Told after every page that was printed, with the pages done and all pages of the job; false breaks the
    // job off, and nothing comes out.
    std::function<bool(int, int)> pagePrinted;

  private:
    unsigned m_geometry = 0;
    std::array<double, 5> m_geometryOf{};
};

} // namespace vandrel
