// Printing without the preview: the whole document on the printer in use, with a small window that shows how
// far it is and takes Esc.
#pragma once

#include "foundation/dialogue.h"
#include "print/qc_printer.h"

class QWidget;

namespace vandrel {

// One copy of all pages. Input is swallowed meanwhile; Esc asks whether to stop. Faults are told in a box, no
// printer at all as one of them. False: nothing came out.
bool printAtOnce(qcPrinter& document, Dialogue& dialogue, QWidget* parent);

} // namespace vandrel
