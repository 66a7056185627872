// The one way in which pages go to paper and into a PDF file: a painter at 1440 dots an inch, and pages that
// are begun only when something is drawn on them.
#pragma once

#include "platform/fault.h"
#include "print/page_painter.h"
#include "print/print_service.h"

#include <QPagedPaintDevice>

namespace vandrel {

class PagedJob : public PrintJob, private PageTarget {
  public:
    PageTarget& page() override { return *this; }
    void newPage() override { ++m_ended; }
    void endDoc() override;

  protected:
    // Begins painting on a device that is set up already. False: the device refuses.
    bool begin(QPagedPaintDevice& device);
    // Ends painting, so that the device can go; whatever is not complete stays so.
    void stop();
    // Brings the painted pages out. Faults as of endDoc().
    virtual void bringOut() = 0;
    // What a device says that could not begin a page or end.
    virtual Fault refused() const = 0;
    // Asked at every new page: faults of what was written so far.
    virtual void check() {}

  private:
    void text(const TextRun& run) override;
    void rule(double left, double right, double y, double width, long color) override;
    void box(double left, double top, double right, double bottom, long fill, double outline,
             long color) override;
    PagePainter& current();
    void turnPages(int pages);

    QPagedPaintDevice* m_device = nullptr;
    QPainter m_painter;
    std::unique_ptr<PagePainter> m_page;
    int m_ended = 0; // pages ended since the last one that something was drawn on
};

// Paper of that size in twips, as Qt counts paper: in whole points. A size that is none is A4.
QPageSize pageSize(double width, double height);

} // namespace vandrel
