// The covering note "Kísérőjegyzék" of an itemised report, line by line.
#pragma once

#include "foundation/institution_data.h"
#include "reports/report_figures.h"

#include <QDate>
#include <QStringList>

namespace vandrel {

// What tells the notes of two reports apart.
struct NoteForm {
    QString title;
    QStringList afterHeading = {};  // lines after the two of the heading
    int blanksInTableHead = 30;     // after "Munkahely"
    int blanksBeforePoints = 15;    // in a unit's line
    QStringList beforeClosing = {}; // lines before the one of withdrawals and payments
};

// Lines without their line ends. period is the text as typed; an unknown unit has an empty
// name, and a name that is longer than its place moves what comes after it.
QStringList noteHead(const NoteForm& form, const Institution& institution, QDate today,
                     const QString& period);
QString noteUnitLine(const NoteForm& form, const UnitFigures& unit, const QString& unitName);
QStringList noteFoot(const NoteForm& form, double grandTotal, qint64 procedures);

} // namespace vandrel
