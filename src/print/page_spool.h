// Pages kept in a temporary file until it is certain that they shall come out. A print service takes what has
// been painted even when its job is broken off, so nothing is painted there before the document is complete.
#pragma once

#include "print/page_target.h"

#include <QDataStream>
#include <QTemporaryFile>

#include <map>
#include <vector>

namespace vandrel {

class PrintJob;

class PageSpool : public PageTarget {
  public:
    PageSpool(); // fault of the temporary folder

    // The faces must live until play().
    void text(const TextRun& run) override;
    void rule(double left, double right, double y, double width, long color) override;
    void box(double left, double top, double right, double bottom, long fill, double outline,
             long color) override;
    void newPage();
    // Draws everything onto the job, page by page; to be called once. Fault when the disk did not take it
    // all.
    void play(PrintJob& job);

  private:
    void playText(PageTarget& page);
    void check() const;

    QTemporaryFile m_file;
    QDataStream m_stream;
    std::vector<const Face*> m_faces;
    std::map<const Face*, qint32> m_places;
};

} // namespace vandrel
