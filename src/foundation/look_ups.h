// Code-to-name look-ups over the dictionaries. Codes are compared without regard to case and without blanks
// around them; the first row in the table's order counts. Faults of the data files pass through.
#pragma once

#include "foundation/workstation.h"

#include <QString>

#include <optional>

namespace vandrel {

struct ProcedureEntry {
    QString name;  // a blank when the code is unknown
    double points; // 0 when the code is unknown
};

// Name and point value of a procedure code.
ProcedureEntry Visszaad_beav(Workstation& station, const QString& code);
// The code as BEAV, DIAGNOS, SZAKREND or ORVOSOK spells it; nullopt when it is not there or empty.
std::optional<QString> procedureCode(Workstation& station, const QString& code);
std::optional<QString> diagnosisCode(Workstation& station, const QString& code);
std::optional<QString> unitCode(Workstation& station, const QString& code);
std::optional<QString> doctorCode(Workstation& station, const QString& code);
// Name of a diagnosis; nullopt when DIAGNOS does not have the code.
std::optional<QString> Visszaad_Diagnos(Workstation& station, const QString& code);
QString Visszaad_szakrend(Workstation& station, const QString& code);       // REND_NEV, empty when not found
double Visszaad_szakrend_szorzo(Workstation& station, const QString& code); // SZORZO, 1.0 when not found
QString Visszaad_bekuldo(Workstation& station, const QString& code);        // NEV, a blank when not found
QString Visszaad_orvos(Workstation& station, const QString& code);          // NEV, empty when not found
// NEVE & " (" & Taj & ")"; empty when not found.
QString patientCaption(Workstation& station, qint64 patientId);
// Each line of the sheet as name(code), with "," between, in table order.
QString procedureSummary(Workstation& station, const QString& sheetKey);
// First town whose postal code starts with the given text (empty text: empty); exact: of that very code.
QString townByPrefix(Workstation& station, const QString& postalCode);
QString townOf(Workstation& station, const QString& postalCode);
// Week of a date, as the sick-pay week fields count it: the week that holds the first of January of today's
// year is week 1, weeks begin on Monday.
// Deliberate: a date of another year gives a number outside 1 to 53, 0 and less for earlier years.
int weekOf(QDate date, QDate today);
// The label that begins every sheet key given on this workstation; empty when there is none.
QString workstationLabel(Workstation& station);

} // namespace vandrel
