// The twenty checks of a store, in their order.
#include "sheet/sheet_checks.h"

#include "platform/format.h"
#include "platform/text_compare.h"

using namespace Qt::StringLiterals;

namespace vandrel {

namespace {

template<auto member>
bool empty(Workstation&, const SheetRecord& record) {
    return (record.fields.*member).trimmed().isEmpty();
}

// The empty mask passes here: the next check has a message of its own for it.
bool birthDateWrong(Workstation&, const SheetRecord& record) {
    return record.fields.Szul_dat != format::emptyDate && !format::parseDate(record.fields.Szul_dat);
}

bool birthDateMissing(Workstation&, const SheetRecord& record) {
    return record.fields.Szul_dat == format::emptyDate;
}

bool partFeeMissing(Workstation&, const SheetRecord& record) {
    return equalTexts(record.fields.Terites.trimmed(), u"0R") &&
           record.fields.TerReszlDij.trimmed().isEmpty();
}

bool timeMissing(Workstation&, const SheetRecord& record) {
    return record.fields.F_ido.trimmed() == u":";
}

bool timeShort(Workstation&, const SheetRecord& record) {
    return record.fields.F_ido.trimmed().size() < 5;
}

// Deliberate: compares with zero, not with one. A count is never below zero, so a sheet without any procedure
// line can be stored.
bool linesBelowZero(Workstation& station, const SheetRecord& record) {
    Query lines = station.files[DataFile::tetdata].query("select count(*) from EUSZOLG where Azonosito=?1",
                                                         record.fields.Azonosito);
    return lines.next() && lines.integer(0) < 0;
}

bool euSheetIncomplete(Workstation&, const SheetRecord& record) {
    return record.fields.EU_LAP.trimmed() == u"1" &&
           (record.euSheet.BIZT_ORSZ.trimmed().isEmpty() || record.euSheet.CS_NEV.trimmed().isEmpty() ||
            record.euSheet.KER_NEV.trimmed().isEmpty() || record.euSheet.BIZT_SZAM.trimmed().isEmpty());
}

using F = SheetFields;
constexpr OrderedCheck<Workstation&, const SheetRecord&> checks[] = {
    {empty<&F::Irszam>, u"Lakcím-Város nincs kitöltve!", "Irszam"},
    {empty<&F::Szakrend>, u"Szakrendelés nincs kitöltve!", "Szakrend"},
    {empty<&F::Szem_szam>, u"TAJ szám nincs kitöltve!", "Szem_szam"},
    {empty<&F::Naplo>, u"Hibás naplósorszám!", "Naplo"},
    {empty<&F::Azon_tipus>, u"Hibás azonosító típus!", "Azon_tipus"},
    {empty<&F::Nem>, u"Nincs kitöltve a beteg neme!", "Nem"},
    {birthDateWrong, u"Hibás a születési dátum, kérem javítsa!", "Szul_dat", u"Hiba!"},
    {birthDateMissing, u"Születési dátum nincs kitöltve!", "Szul_dat"},
    {empty<&F::Terites>, u"Térítési kategória nincs kitöltve!", "Terites"},
    {partFeeMissing, u"Térítés részleges díja nincs kitöltve!", "TerReszlDij"},
    {empty<&F::Baleset>, u"Baleset mező nincs kitöltve!", "Baleset"},
    {empty<&F::Ell_tip>, u"Ellátás típusa nincs kitöltve!", "Ell_tip"},
    {empty<&F::Tova>, u"Továbbküldés nincs kitöltve!", "Tova"},
    {empty<&F::Neve>, u"Beteg neve nincs kitöltve!", "Neve"},
    {empty<&F::Anyja_neve>, u"Anyja neve nincs kitöltve!", "Anyja_neve"},
    {empty<&F::Allampol_rov>, u"Állampolgárság nincs kitöltve!", "Allampol_rov"},
    {timeMissing, u"Nem megfelelő az ellátási idő!", "F_ido"},
    {timeShort, u"Nem megfelelő az ellátási idő!", "F_ido"},
    {linesBelowZero, u"Minimum egy Oeno kitöltése kötelező!", "BEAV"},
    {euSheetIncomplete, u"Eu lap kitöltése helytelen!", "EU_LAP"},
};

} // namespace

std::optional<CheckFailure> checkSheet(Workstation& station, const SheetRecord& record) {
    return firstFailure(checks, station, record);
}

} // namespace vandrel
