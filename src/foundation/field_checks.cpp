// The checks that run when a field of the sheet is left, as two tables: the group that runs while the general
// enabling switch is on, and the group that runs while it is off (silent in normal work, and wanted so).
#include "foundation/field_checks.h"

#include "foundation/code_lists.h"
#include "foundation/look_ups.h"
#include "platform/format.h"
#include "platform/text_compare.h"

#include <optional>

using namespace Qt::StringLiterals;

namespace vandrel {

namespace {

// The accepted code as its list or dictionary spells it, or nullopt.
using Accept = std::optional<QString> (*)(Workstation&, const QString& value);

// A list of its own, apart from the pick-list: they differ on purpose.
template<const auto& codes>
std::optional<QString> oneOf(Workstation&, const QString& value) {
    for (const char16_t* code : codes)
        if (equalTexts(QString::fromUtf16(code), value)) return QString::fromUtf16(code);
    return std::nullopt;
}

// The codes of the pick-list itself.
template<PickMarker marker>
std::optional<QString> ofList(Workstation&, const QString& value) {
    const CodeList& list = codeList(marker);
    for (const QString& entry : list.entries)
        if (equalTexts(entry.left(list.width), value)) return entry.left(list.width);
    return std::nullopt;
}

std::optional<QString> anything(Workstation&, const QString& value) {
    return value;
}

constexpr const char16_t* feeCategories[] = {u"01", u"02", u"03", u"04", u"05", u"06", u"09", u"0A",
                                             u"0D", u"0E", u"0F", u"0G", u"0R", u"0K", u"0M", u"0S"};
// The pick-list offers "01", which is refused here, and "11" is accepted, which it does not offer: kept so.
constexpr const char16_t* accidents[] = {u"00", u"11", u"16", u"20", u"21", u"22", u"31",
                                         u"32", u"34", u"40", u"41", u"42", u"43"};
constexpr const char16_t* careTypes[] = {u"1", u"2", u"3", u"4", u"5", u"6", u"7", u"8"};
constexpr const char16_t* onwardReferrals[] = {u"0", u"1", u"2", u"3", u"4", u"5", u"6", u"7", u"8"};
constexpr const char16_t* euSheets[] = {u"0", u"1"};
constexpr const char16_t* statements[] = {u"10", u"20", u"50", u"60"};
// "99" is in no pick-list.
constexpr const char16_t* paymentModes[] = {u"01", u"02", u"03", u"04", u"05", u"99"};
constexpr const char16_t* characters[] = {u"A", u"V", u"C", u"D"};
constexpr const char16_t* identifierTypes[] = {u"0", u"1", u"2", u"3", u"4", u"5", u"6"};
// "0" is in no pick-list.
constexpr const char16_t* sexes[] = {u"0", u"1", u"2"};
constexpr const char16_t* admissions[] = {u"I", u"A", u"D", u"H", u"V"};

enum class WhenRefused { kept, cleared, replaced };

struct FieldCheck {
    const char16_t* name;
    const char16_t* whenEmpty; // what an empty field becomes; "" leaves it empty
    Accept accept;
    const char16_t* message;
    WhenRefused whenRefused = WhenRefused::kept;
    const char16_t* replacement = u"";
    bool newSheetOnly = false;
};

constexpr FieldCheck groupA[] = {
    {u"Szakrend", u"", unitCode, u"Ilyen 'Szakrendelőkód' nincs!Írjon be másikat!", WhenRefused::cleared, u"",
     true},
    {u"Terites", u"01", oneOf<feeCategories>, u"Nincs ilyen típusú 'Térítési kategória'!"},
    {u"Baleset", u"00", oneOf<accidents>, u"Nincs ilyen típusú 'Baleset'!"},
    {u"Ell_tip", u"1", oneOf<careTypes>, u"Nincs ilyen típusú 'Ellátás'!"},
    {u"Tova", u"0", oneOf<onwardReferrals>, u"Nincs ilyen típusú 'Továbbküldés kód'!"},
    {u"EU_LAP", u"0", oneOf<euSheets>, u"Nincs ilyen típusú 'EU adatlap kód'!"},
    {u"ElszNyil", u"", oneOf<statements>, u"Nincs ilyen típusú 'Elszámolási nyilatkozat'!",
     WhenRefused::replaced, u"10"},
    {u"VizitDij", u"01", anything, u""},
    {u"VizitdijFizMod", u"", oneOf<paymentModes>, u"Nincs ilyen típusú 'Vizitdíj fizetési mód'!",
     WhenRefused::replaced, u"01"},
    {u"BeavJelleg", u"", oneOf<characters>, u"Nincs ilyen típusú 'Beavatkozás jelleg'!",
     WhenRefused::replaced, u"A"},
    {u"Diag1", u"", diagnosisCode, u"Nincs ilyen 'BNO kód'!", WhenRefused::cleared},
    {u"Diag2", u"", diagnosisCode, u"Nincs ilyen 'BNO kód'!", WhenRefused::cleared},
    {u"Diag3", u"", diagnosisCode, u"Nincs ilyen 'BNO kód'!", WhenRefused::cleared},
    {u"Diag4", u"", diagnosisCode, u"Nincs ilyen 'BNO kód'!", WhenRefused::cleared},
    {u"Diag5", u"", diagnosisCode, u"Nincs ilyen 'BNO kód'!", WhenRefused::cleared},
    {u"BEAV", u"", procedureCode, u"Nincs ilyen 'Beavatkozás kód'!", WhenRefused::cleared},
};

// The request codes turn empty into "0" here only: with the switch on they stay empty.
constexpr FieldCheck groupB[] = {
    {u"Orvkod", u"", doctorCode, u"Ilyen 'Orvoskód' nincs!Írjon be másikat!"},
    {u"Azon_tipus", u"", oneOf<identifierTypes>, u"Nincs ilyen típusú TAJ szám!"},
    {u"Nem", u"", oneOf<sexes>, u"Nincs ilyen típusú 'Nem' kód!"},
    {u"Labor", u"0", ofList<PickMarker::Labor>, u"Nem megfelelő 'Laborvizsgálat kérés' kód!"},
    {u"Rtg", u"0", ofList<PickMarker::Rtg>, u"Nem megfelelő 'Képalkotó vizsg. kérés' kód!"},
    {u"Ctmr", u"0", ofList<PickMarker::Ctmr>, u"Nem megfelelő 'CT, MR, PET vizsg. kérés' kód!"},
    {u"K_kep", u"0", ofList<PickMarker::K_kep>, u"Nem megfelelő 'Ker. képesség elbírálás'kód!"},
    {u"Fizio", u"0", ofList<PickMarker::Fizio>, u"Nem megfelelő 'Fiziotherápiás vizsg. kérés' kód!"},
    {u"Utkltg", u"0", ofList<PickMarker::Utkltg>, u"Nem megfelelő 'Útiköltség-térítés igény' kód!"},
    {u"Felvmod", u"", oneOf<admissions>, u"Nincs ilyen típusú 'Táppénzes felvételi mód'!"},
    {u"Tapjell", u"", ofList<PickMarker::Tapjell>, u"Nem megfelelő 'Táppénz jelleg' kód!"},
};

FieldVerdict judge(Workstation& station, const FieldCheck& check, const QString& value) {
    const QString code = value.trimmed();
    if (code.isEmpty()) {
        const QString whenEmpty = QString::fromUtf16(check.whenEmpty);
        return {whenEmpty.isEmpty() ? value : whenEmpty, {}};
    }
    if (const std::optional<QString> accepted = check.accept(station, code)) return {*accepted, {}};
    FieldVerdict refused{value, CheckFailure{QString::fromUtf16(check.message), u"Hiba"_s, Icon::critical,
                                             QString::fromUtf16(check.name)}};
    if (check.whenRefused == WhenRefused::cleared) refused.value.clear();
    if (check.whenRefused == WhenRefused::replaced) refused.value = QString::fromUtf16(check.replacement);
    return refused;
}

constexpr int earliestYear = 1860;

} // namespace

FieldVerdict checkField(Workstation& station, const QString& name, const QString& value, bool altEng,
                        bool newSheet) {
    const std::span<const FieldCheck> group = altEng ? std::span<const FieldCheck>(groupA) : groupB;
    for (const FieldCheck& check : group)
        if (equalTexts(QString::fromUtf16(check.name), name) && (newSheet || !check.newSheetOnly))
            return judge(station, check, value);
    return {value, {}};
}

std::optional<CheckFailure> checkDateField(DateField field, const QString& value) {
    const bool mayBeEmpty = field == DateField::referral || field == DateField::exemptionExpiry;
    if (mayBeEmpty && value == format::emptyDate) return std::nullopt;
    const std::optional<QDate> date = format::parseDate(value);
    const bool bounded = field == DateField::birth || field == DateField::referral;
    if (date && (!bounded || date->year() >= earliestYear)) return std::nullopt;
    // Deliberate: one message for the date of care and the expiry, as the clinics know it.
    const QString message = field == DateField::birth ? u"Hibás a születési dátum, kérem javítsa!"_s
                            : field == DateField::referral ? u"Hibás a beutaló kelte, kérem javítsa!"_s
                                                           : u"Hibás a felviteli dátum, kérem javítsa!"_s;
    return CheckFailure{message, u"Hiba!"_s};
}

} // namespace vandrel
