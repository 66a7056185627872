// The code lists behind the pick-lists, the check of a TAJ, and the field checks of the sheet with their
// messages. List and check of a field differ on purpose in places, so they are tables of their own.
#pragma once

#include "foundation/checks.h"
#include "foundation/workstation.h"

#include <QString>
#include <QStringList>

#include <memory>
#include <optional>
#include <vector>

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

// Lines of a table-bound pick-list, fetched row by row so that a register of any size opens at once.
class PickSource {
  public:
    virtual ~PickSource() = default;
    virtual int count() const = 0;
    virtual QString line(int row) = 0; // row from 0, in the table's order
    // The first row that begins with the text; -1 when there is none. Of a table's line it is the code that
    // is searched.
    virtual int rowBeginningWith(const QString& text) = 0;
};
// Source of markers 7, 8 and 18 (tables) and of all lists. Faults of the data file pass through.
std::unique_ptr<PickSource> openPickSource(Workstation& station, PickMarker marker);

// --- TAJ ---------------------------------------------------------------------------------------------------
// Nine digits, the ninth a check digit: three times the odd places and seven times the even ones, modulo 10.
enum class TajResult { good, wrongLength, wrongDigit, notDigits };
TajResult checkTaj(const QString& taj);
inline bool tajValid(const QString& taj) {
    return checkTaj(taj) == TajResult::good;
}
// Shows the message that belongs to the result; nothing for a good one.
void checkTajWithMessages(Dialogue& dialogue, const QString& taj);

// --- field checks ------------------------------------------------------------------------------------------
// What a check says about a field that was left.
struct FieldVerdict {
    QString value; // what the field holds from now on (a default, a correction or what it held)
    std::optional<CheckFailure> failure; // names the field itself, which gets the focus back
};

// Group A runs only while Alt_eng is on, group B only while it is off; name is the field's name
// ("Terites", "Baleset", "Diag1", "BEAV" for the procedure code, "BeavJelleg" ...). A field without a check
// in the running group is good. newSheet is false in mode "Javítás". Codes compare without regard to case; a
// code that is found takes the spelling of its list or dictionary, since the reports carry it as it stands.
// Faults: those of the dictionaries' data files.
FieldVerdict checkField(Workstation& station, const QString& name, const QString& value, bool altEng,
                        bool newSheet);

// Birth date and date of referral: a date of the calendar from 1860 on. Date of care and exemption expiry: a
// date of the calendar. The empty mask passes for the referral and the expiry only. The failure names no
// field: the focus goes back to the one that was left.
enum class DateField { birth, referral, care, exemptionExpiry };
std::optional<CheckFailure> checkDateField(DateField field, const QString& value);

} // namespace vandrel
