// The printers of this machine's print service, and behind them always "PDF fájl", which asks for the name of
// a file. Needs a QApplication; without a print service there is the PDF file alone.
#pragma once

#include "print/print_service.h"

#include <QString>

#include <functional>

class QPrinterInfo;

namespace vandrel {

class Dialogue;

// Asked with a suggested file name; answers with the path of the file to be written, its ending included, or
// with nothing when the user has given up. What exists at that path is overwritten.
using AskPdfPath = std::function<QString(const QString& suggestion)>;
// Asks in a file dialogue over the active window, and through the dialogue before overwriting.
AskPdfPath askPdfPathBy(Dialogue& dialogue);

class SystemPrinters : public PrintService {
  public:
    explicit SystemPrinters(AskPdfPath askPdfPath) : m_askPdfPath(std::move(askPdfPath)) {}

    // Looks for the printers anew: the numbers of the other functions are places in this list.
    std::vector<PrinterEntry> printers() const override;
    int defaultPrinter() const override;
    PrinterPaper paper(int printer) const override;
    // Faults noPrinter for a printer that has vanished, deviceError for one that refuses the job, those of
    // the file for a PDF.
    std::unique_ptr<PrintJob> begin(const PrintJobSetup& setup) override;

  private:
    const std::vector<QString>& names() const;
    bool isPdf(int printer) const { return printer == static_cast<int>(names().size()); }
    QPrinterInfo info(int printer) const; // null: no such printer (any more)

    AskPdfPath m_askPdfPath;
    mutable std::vector<QString> m_names; // of the print service's printers, as listed last
    mutable bool m_listed = false;
};

} // namespace vandrel
