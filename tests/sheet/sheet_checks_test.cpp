// The order of the checks of a store: each fault alone, and every pair of faults.
#include "sheet/sheet_checks.h"
#include "sheet/sheet_field_table.h"

#include "platform/format.h"
#include "sheet/sheet_fields.h"
#include "support/sheet_samples.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace vandrel::test {

namespace {

struct Case {
    const char* field;
    const char16_t* wrong;
    const char16_t* message;
    const char* focus = nullptr; // the field itself
};

// In the order of the checks.
constexpr Case cases[] = {
    {"Irszam", u" ", u"Lakcím-Város nincs kitöltve!"},
    {"Szakrend", u"", u"Szakrendelés nincs kitöltve!"},
    {"Szem_szam", u"  ", u"TAJ szám nincs kitöltve!"},
    {"Naplo", u"", u"Hibás naplósorszám!"},
    {"Azon_tipus", u"", u"Hibás azonosító típus!"},
    {"Nem", u"", u"Nincs kitöltve a beteg neme!"},
    {"Szul_dat", u"1970.02.30.", u"Hibás a születési dátum, kérem javítsa!"},
    {"Szul_dat", u"    .  .  .", u"Születési dátum nincs kitöltve!"},
    {"Terites", u"", u"Térítési kategória nincs kitöltve!"},
    {"Terites", u"0R", u"Térítés részleges díja nincs kitöltve!", "TerReszlDij"},
    {"Baleset", u"", u"Baleset mező nincs kitöltve!"},
    {"Ell_tip", u"", u"Ellátás típusa nincs kitöltve!"},
    {"Tova", u"", u"Továbbküldés nincs kitöltve!"},
    {"Neve", u"", u"Beteg neve nincs kitöltve!"},
    {"Anyja_neve", u"", u"Anyja neve nincs kitöltve!"},
    {"Allampol_rov", u"", u"Állampolgárság nincs kitöltve!"},
    {"F_ido", u"  :  ", u"Nem megfelelő az ellátási idő!"},
    {"F_ido", u"14:5", u"Nem megfelelő az ellátási idő!"},
    {"EU_LAP", u"1", u"Eu lap kitöltése helytelen!"},
};

void spoil(SheetFields& fields, const Case& fault) {
    for (const FieldRow<SheetKey>& name : sheetFieldTable())
        if (std::string_view(name.field.name) == fault.field)
            valueOf(fields, name.key) = QString::fromUtf16(fault.wrong);
}

void expectFault(Workstation& station, const SheetFields& fields, const Case& expected) {
    const std::optional<CheckFailure> failure = checkSheet(station, fields);
    ASSERT_TRUE(failure);
    EXPECT_EQ(failure->message, QString::fromUtf16(expected.message));
    EXPECT_EQ(failure->field.toStdString(), expected.focus != nullptr ? expected.focus : expected.field);
    const bool titled = failure->message == u"Hibás a születési dátum, kérem javítsa!";
    EXPECT_EQ(failure->title, titled ? u"Hiba!"_s : programTitle);
}

} // namespace

TEST(SheetChecks, EachAloneAndTheEarlierOfTwo) {
    LabelledStation station;
    const SheetFields good = goodSheet(station.workstation);
    EXPECT_FALSE(checkSheet(station.workstation, good));
    for (const Case& first : cases) {
        SCOPED_TRACE(first.field);
        SheetFields one = good;
        spoil(one, first);
        expectFault(station.workstation, one, first);
        for (const Case& second : cases) {
            if (&second <= &first || std::string_view(second.field) == first.field) continue;
            SCOPED_TRACE(second.field);
            SheetFields two = one;
            spoil(two, second);
            expectFault(station.workstation, two, first);
        }
    }
}

TEST(SheetChecks, WhatPasses) {
    LabelledStation station;
    SheetFields fields = goodSheet(station.workstation);
    fields.Terites = u"0R"_s;
    fields.TerReszlDij = u"0"_s; // only an empty text fails
    fields.EU_LAP = u"1"_s;
    fields.Szem_szam = u"123456789"_s; // a wrong TAJ may be stored
    fields.Orvkod.clear();
    fields.F_datum = format::emptyDate;
    fields.F_ido = u"14: 5"_s; // five characters
    ASSERT_EQ(station.count("EUSZOLG"), 0);
    SheetRecord record(fields);
    record.euSheet = {u"x"_s, u"x"_s, u"x"_s, u"x"_s};
    EXPECT_FALSE(checkSheet(station.workstation, record));
    record.euSheet.KER_NEV = u" "_s;
    const std::optional<CheckFailure> failure = checkSheet(station.workstation, record);
    ASSERT_TRUE(failure);
    EXPECT_EQ(failure->field, u"EU_LAP"_s);
}

} // namespace vandrel::test
