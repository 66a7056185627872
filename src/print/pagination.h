// Pagination: measures every item of a document and counts its pages, with the header and footer that each
// page has. Draws nothing.
#pragma once

#include "print/qc_printer.h"

namespace vandrel {

class Pagination {
  public:
    explicit Pagination(qcPrinter& document) : m_document(document), m_engine(document.m_engine) {}

    // Settles the document's total of pages and its items' places, and clears NeedsPaging.
    void run();

  private:
    void bands() { m_document.prepareBands(m_page, m_isLast, m_document.m_pages); }
    void lastBands(double left);
    void turn();
    void place(qcTextItem& item, bool lastFlow);

    qcPrinter& m_document;
    PrintEngine& m_engine;
    int m_page = 1;
    double m_y = 0; // in the page's body
    bool m_isLast = false;
};

} // namespace vandrel
