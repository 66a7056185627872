#include "print/pagination.h"

#include <algorithm>

namespace vandrel {

void Pagination::run() {
    qcTextItemCol& items = m_document.m_items;
    int lastFlow = items.Count();
    while (lastFlow > 0 && (items.begin() + (lastFlow - 1))->Absolute())
        --lastFlow;

    m_document.shareGeometry();
    bands();
    int highestAbsPage = 0;
    int index = 0;
    for (qcTextItem& item : items) {
        ++index;
        item.GetSize();
        const TextStyle& style = *item.m_style.constData();
        if (style.absolute) {
            highestAbsPage = std::max(highestAbsPage, style.absPage);
            continue;
        }
        if ((style.newPage & page_break::before) != 0) turn();
        place(item, index == lastFlow);
        if ((style.newPage & page_break::after) != 0) turn();
    }
    m_document.m_pages = std::max(m_page, highestAbsPage);
    m_engine.NeedsPaging = false;
}

// On the last flow item: the last page's bands, unless what is left of it needs another page.
void Pagination::lastBands(double left) {
    m_isLast = true;
    bands();
    if (left <= m_engine.bodyHeight()) return;
    m_isLast = false;
    bands();
}

void Pagination::turn() {
    ++m_page;
    m_isLast = false;
    bands();
    m_y = 0;
}

void Pagination::place(qcTextItem& item, bool lastFlow) {
    if (lastFlow) lastBands(item.m_height);
    item.m_startPage = item.m_endPage = 0;
    double positionStart = m_y;
    m_y += item.m_style.constData()->top;
    double placed = 0;
    for (int line = 1; line <= item.m_lineCount; ++line) {
        const double height = item.LineHeight(line);
        if (m_y + height <= m_engine.bodyHeight()) {
            m_y += height;
            if (item.m_startPage == 0) item.m_startPage = m_page;
        } else {
            ++m_page;
            m_y = height;
            if (line == 1) {
                item.m_startPage = m_page;
                positionStart = 0;
            }
            // Deliberate: on any other item BodyHeight stays that of the page before.
            if (lastFlow) lastBands(item.m_height - placed);
        }
        placed += height;
    }
    item.m_positionStart = static_cast<float>(positionStart);
    item.m_endPage = m_page;
    item.m_positionEnd = static_cast<float>(m_y);
}

} // namespace vandrel
