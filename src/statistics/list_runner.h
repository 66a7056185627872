// The one skeleton behind all eight lists: the document's start, the walk, the turns of the event loop, the
// question whether to stop, and what happens with no data or with a fault. What a list prints is in its
// producer. Knows no window.
#pragma once

#include "foundation/progress.h"
#include "foundation/workstation.h"
#include "statistics/list_request.h"

#include <QString>

namespace vandrel {

class qcPrinter;

// Makes a list into the document: first empties it, its table too. The request has passed its checks. The
// event loop gets its turns through station.serveEvents. Where progress.stopWished says yes, the user is
// asked
// ("Megszakítja a lista készítését?"), and only yes breaks the list off. Lists 3 and 4 show their lines after
// their sheets the same way.
// While another program holds a data file the run waits for it. What a list had to leave out is told in the
// document's PreviewNote.
// Whatever ends a list but ready leaves the document empty, and the user has been told. Raises no Fault.
ListOutcome runList(Workstation& station, StatisticsList list, const ListRequest& request,
                    qcPrinter& document, Progress& progress);

// The name that a list's file is offered under, without ending: the title, the period, and the unit where the
// list is of one.
QString listFileName(const QString& title, StatisticsList list, const ListRequest& request);

} // namespace vandrel
