// The printers of this machine's print service. Needs a QApplication; without a print service there is none,
// and the paper is A4.
#pragma once

#include "print/print_service.h"

#include <QString>

class QPrinterInfo;

namespace vandrel {

class SystemPrinters : public PrintService {
  public:
    // Looks for the printers anew: the numbers of the other functions are places in this list.
    std::vector<PrinterEntry> printers() const override;
    int defaultPrinter() const override;
    PrinterPaper paper(int printer) const override;
    // Faults noPrinter for a printer that has vanished, deviceError for one that refuses the job.
    std::unique_ptr<PrintJob> begin(const PrintJobSetup& setup) override;

  private:
    const std::vector<QString>& names() const;
    QPrinterInfo info(int printer) const; // null: no such printer (any more)

    mutable std::vector<QString> m_names; // of the print service's printers, as listed last
    mutable bool m_listed = false;
};

} // namespace vandrel
