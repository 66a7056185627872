#include "print/print_engine.h"

#include <utility>

namespace vandrel {

void CurrentPrinter::use(int number) {
    const long turned = m_orientation;
    m_number = number;
    m_paper = m_service.paper(number);
    m_size = {m_paper.width, m_paper.height};
    m_orientation = orientation::portrait;
    setOrientation(turned);
}

void CurrentPrinter::setOrientation(long orientation) {
    if (orientation == m_orientation || !m_paper.turns) return;
    if (orientation != orientation::portrait && orientation != orientation::landscape) return;
    m_orientation = orientation;
    std::swap(m_size.width, m_size.height);
}

unsigned PrintEngine::geometry() {
    const PaperSize size = printer.size();
    const std::array<double, 5> now{size.width, size.height, marginLeft, marginRight,
                                    printer.twipsPerPixelY()};
    if (m_geometry == 0 || now != m_geometryOf) {
        m_geometryOf = now;
        if (++m_geometry == 0) ++m_geometry;
    }
    return m_geometry;
}

} // namespace vandrel
