// A document on its way into a PDF file: the whole file or nothing, text that can be searched and copied.
#pragma once

#include "platform/atomic_file.h"
#include "print/paged_job.h"

#include <QPdfWriter>

namespace vandrel {

class PdfJob : public PagedJob {
  public:
    // The printer of the setup is not looked at. Faults: those of opening the file.
    PdfJob(const QString& path, const PrintJobSetup& setup);
    ~PdfJob() override;

  protected:
    void bringOut() override; // the file's faults; an earlier file of the name is as it was then
    Fault refused() const override;
    void check() override { m_file.check(); }

  private:
    AtomicFile m_file;
    QPdfWriter m_writer;
};

} // namespace vandrel
