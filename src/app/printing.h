// The print engine of a running program: on this machine's fonts and printers, with the preview window.
#pragma once

#include "foundation/workstation.h"
#include "print/font_meter.h"
#include "print/forms/system_printers.h"
#include "print/print_engine.h"

namespace vandrel {

class Printing {
  public:
    // Stands behind station.printing as long as it lives.
    explicit Printing(Workstation& station);
    ~Printing();
    Printing(const Printing&) = delete;
    Printing& operator=(const Printing&) = delete;

  private:
    Workstation& m_station;
    FontMeter m_meter;
    SystemPrinters m_printers;
    PrintEngine m_engine;
};

} // namespace vandrel
