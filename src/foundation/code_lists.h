// The code lists: their titles and entries, and the texts of single codes.
#pragma once

#include <QString>
#include <QStringList>

namespace vandrel {

// How a pick-list knows its caller; the numbers are the system's own.
enum class PickMarker {
    none = 0,
    Labor = 1,
    Rtg = 2,
    Ctmr = 3,
    K_kep = 4,
    Fizio = 5,
    Utkltg = 6,
    Szakrend = 7,
    Orvkod = 8,
    Nem = 9,
    Azon_tipus = 10,
    Terites = 11,
    Baleset = 12,
    Ell_tip = 13,
    Tova = 14,
    EU_LAP = 15,
    Felvmod = 16,
    Megszmod = 17,
    Paciens = 18,
    Igenylo = 19, // exists in the pick logic (width 9), but nothing opens it
    ElszNyil = 20,
    VizitDij = 21,
    VizitdijFizMod = 22,
    BeavJelleg = 23,
    Tapjell = 24
};

struct CodeList {
    PickMarker marker;
    QString title;
    int width;           // characters of a picked line that are the code
    QStringList entries; // "code: text"; empty for lists that come from a table
};

// Every list by its marker.
const CodeList& codeList(PickMarker marker);

// Text of the code's entry in the list of visit fees and in the one of payment modes; empty for any other.
QString Visszaad_VizDijNev(const QString& code);
QString Visszaad_VizDijFizModNev(const QString& code);
// Short fee category text for prints; leaves text unchanged for a code it does not know.
// Deliberate: 0E, 0K, 0M and 0S have no text here.
void feeCategoryText(const QString& code, QString& text);

} // namespace vandrel
