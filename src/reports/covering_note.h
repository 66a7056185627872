// The covering note "Kísérőjegyzék" of an itemised report, line by line.
#pragma once

#include "reports/institution.h"
#include "reports/report_figures.h"

#include <QDate>
#include <QStringList>

namespace vandrel {

// Lines without their line ends. period is the text as typed; an unknown unit has an empty
// name, and a name that is longer than its place moves what is behind it.
QStringList noteHead(const Institution& institution, QDate today, const QString& period);
QString noteUnitLine(const UnitFigures& unit, const QString& unitName);
QStringList noteFoot(double grandTotal, qint64 procedures);

} // namespace vandrel
