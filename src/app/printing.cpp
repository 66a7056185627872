#include "app/printing.h"

#include "print/forms/frmPreview.h"

namespace vandrel {

Printing::Printing(Workstation& station) : m_station(station), m_engine(m_meter, m_printers, station.clock) {
    installPreview(m_engine, station.dialogue);
    m_station.printing = &m_engine;
}

Printing::~Printing() {
    m_station.printing = nullptr;
}

} // namespace vandrel
