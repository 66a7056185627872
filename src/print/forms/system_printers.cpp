#include "print/forms/system_printers.h"

#include "foundation/dialogue.h"
#include "platform/fault.h"
#include "print/page_spool.h"
#include "print/paged_job.h"

#include <QApplication>
#include <QPageLayout>
#include <QPrinter>
#include <QPrinterInfo>

#include <algorithm>
#include <cmath>
#include <exception>

using namespace Qt::StringLiterals;

namespace vandrel {

namespace {

// Painting onto a printer. What has begun here comes out.
class PrinterOutput : public PagedJob {
  public:
    PrinterOutput(const QPrinterInfo& info, const PrintJobSetup& setup)
        : m_name(info.printerName()), m_printer(info, QPrinter::HighResolution) {
        m_printer.setResolution(1440); // one unit is one twip
        m_printer.setDocName(setup.title);
        m_printer.setCreator(programTitle);
        m_printer.setFullPage(true);
        const bool turned = setup.orientation == orientation::landscape;
        // The print service wants the paper as it lies in its tray, and how it is turned.
        const QPageSize paper =
            turned ? pageSize(setup.height, setup.width) : pageSize(setup.width, setup.height);
        m_printer.setPageLayout(QPageLayout(paper, turned ? QPageLayout::Landscape : QPageLayout::Portrait,
                                            QMarginsF(0, 0, 0, 0)));
        m_printer.setFullPage(true);
        if (!begin(m_printer)) throw refused();
    }
    ~PrinterOutput() override {
        if (!m_done) m_printer.abort();
        stop();
    }

  protected:
    void bringOut() override {
        if (m_printer.printerState() == QPrinter::Error || m_printer.printerState() == QPrinter::Aborted)
            throw refused();
        m_done = true;
    }
    Fault refused() const override {
        return {fault::deviceError, u"A nyomtató nem fogadta el a munkát: %1"_s.arg(m_name)};
    }

  private:
    QString m_name;
    QPrinter m_printer;
    bool m_done = false;
};

QPrinterInfo printerNamed(const QString& name) {
    const QPrinterInfo info = QPrinterInfo::printerInfo(name);
    if (info.isNull()) throw Fault(fault::noPrinter, u"A nyomtató nem érhető el: %1"_s.arg(name));
    return info;
}

// One document on its way to a printer; the printer gets it when it is complete.
class PrinterJob : public PrintJob {
  public:
    PrinterJob(const QString& name, const PrintJobSetup& setup) : m_name(name), m_setup(setup) {}
    PageTarget& page() override { return m_spool; }
    void newPage() override { m_spool.newPage(); }
    void endDoc() override {
        PrinterOutput output(printerNamed(m_name), m_setup);
        m_spool.play(output);
        output.endDoc();
    }

  private:
    QString m_name;
    PrintJobSetup m_setup;
    PageSpool m_spool;
};

PrinterPaper paperOf(const QPageSize& size) {
    PrinterPaper paper;
    if (!size.isValid()) return paper;
    // From millimetres: Qt's points are rounded.
    const QSizeF millimetres = size.size(QPageSize::Millimeter);
    paper.code = size.windowsId();
    paper.width = std::round(millimetres.width() * 1440 / 25.4);
    paper.height = std::round(millimetres.height() * 1440 / 25.4);
    return paper;
}

} // namespace

std::vector<PrinterEntry> SystemPrinters::printers() const {
    m_names.clear();
    m_listed = true;
    std::vector<PrinterEntry> all;
    for (const QPrinterInfo& printer : QPrinterInfo::availablePrinters()) {
        m_names.push_back(printer.printerName());
        const QString place = printer.location().simplified();
        all.push_back({printer.printerName(), place.isEmpty() ? u"CUPS"_s : place});
    }
    return all;
}

const std::vector<QString>& SystemPrinters::names() const {
    if (!m_listed) printers();
    return m_names;
}

int SystemPrinters::defaultPrinter() const {
    const auto found = std::find(names().begin(), names().end(), QPrinterInfo::defaultPrinterName());
    return found != names().end() ? static_cast<int>(found - names().begin()) : 0;
}

QPrinterInfo SystemPrinters::info(int printer) const {
    const auto place = static_cast<std::size_t>(printer);
    if (printer < 0 || place >= names().size()) return {};
    // Found by its name only while it is there; a wrong name given to QPrinter would be ignored.
    return QPrinterInfo::printerInfo(m_names[place]);
}

PrinterPaper SystemPrinters::paper(int printer) const {
    const QPrinterInfo wanted = info(printer);
    return paperOf((wanted.isNull() ? QPrinterInfo::defaultPrinter() : wanted).defaultPageSize());
}

std::unique_ptr<PrintJob> SystemPrinters::begin(const PrintJobSetup& setup) {
    const auto place = static_cast<std::size_t>(setup.printer);
    if (setup.printer < 0 || place >= names().size())
        throw Fault(fault::noPrinter, u"A kiválasztott nyomtató nem érhető el!"_s);
    return std::make_unique<PrinterJob>(printerNamed(m_names[place]).printerName(), setup);
}

} // namespace vandrel
