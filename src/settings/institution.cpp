#include "settings/institution.h"

#include "foundation/institution_data.h"
#include "foundation/row_values.h"
#include "platform/code_page.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace vandrel {

namespace {

constexpr qsizetype labelLength = 3;

// Where a failing check says so: in the status line, in a box, or not at all.
constexpr const char16_t* statusLine = u"";
constexpr const char16_t* box = u"Hiba";

struct Check {
    QString InstitutionFields::*field;
    const char* name;
    int length; // fewer characters than this are wrong
    const char16_t* message;
    const char16_t* title;

    bool failsIf(const InstitutionFields& fields) const { return (fields.*field).trimmed().size() < length; }
    CheckFailure failure() const {
        return {QString::fromUtf16(message), QString::fromUtf16(title), Icon::critical,
                QString::fromLatin1(name)};
    }
};

constexpr Check checks[] = {
    {&InstitutionFields::Int_nev, "Int_nev", 1, u" Hiba: Az intézet neve mező üresen maradt!", statusLine},
    {&InstitutionFields::Gyogyi_kod, "Gyogyi_kod", 1,
     u" Hiba: Az intézet GYÓGYINFOK kódja mező üresen maradt!", statusLine},
    {&InstitutionFields::Orv_kod, "Orv_kod", 1, u" Hiba: Az ellátó orvos kódja mező üresen maradt!",
     statusLine},
    {&InstitutionFields::Szakrend_kod, "Szakrend_kod", 1, u" Hiba: A szakrendelő kódja mező üresen maradt!",
     statusLine},
    // Deliberate: the town is called the institution's name here.
    {&InstitutionFields::City, "City", 1, u" Hiba :Az intézet neve mező üresen maradt!", statusLine},
    {&InstitutionFields::NBK_KOD, "NBK_KOD", 1, u" Hiba: Az intézet NBK kódja mező üresen maradt!",
     statusLine},
    // Deliberate: a short GYÓGYINFOK code stops the save without a word.
    {&InstitutionFields::Gyogyi_kod, "Gyogyi_kod", 4, u"", statusLine},
    {&InstitutionFields::Orv_kod, "Orv_kod", 5, u"Hiba: az ellátó orvos kódja 5 jegyű!", box},
    {&InstitutionFields::Szakrend_kod, "Szakrend_kod", 9, u"Hiba: a szakrendelő kódja 9 jegyű!", box},
    {&InstitutionFields::NBK_KOD, "NBK_KOD", 4, u"Hiba: az intézet NBK kódja 4 jegyű!", box},
};

QString masked(const QString& stored, const QString& emptyMask) {
    const QString trimmed = stored.trimmed();
    return trimmed.isEmpty() || trimmed == "0"_L1 ? emptyMask : stored;
}

// Whether setup.ini gives the value back as it was typed.
bool keepsInSetup(const QString& value) {
    if (value.size() > loginLength || value != value.trimmed()) return false;
    if (code_page::toUnicode(code_page::fromUnicode(value)) != value) return false;
    const bool quoted = value.size() >= 2 && value.front() == value.back() &&
                        (value.front() == '"'_L1 || value.front() == '\''_L1);
    return !quoted && !value.contains('\n'_L1) && !value.contains('\r'_L1);
}

} // namespace

InstitutionFields loadInstitution(Workstation& station) {
    InstitutionFields result;
    if (const std::optional<Institution> stored = readInstitution(station)) {
        result.Int_nev = stored->Int_nev;
        result.Gyogyi_kod = stored->Gyogyi_kod;
        result.Orv_kod = stored->Orv_kod;
        result.Szakrend_kod = stored->Szakrend_kod;
        result.irsz = stored->irsz.trimmed();
        result.City = stored->City;
        result.cim = stored->cim.trimmed();
        result.Bankszamla = stored->Bankszamla;
        result.Adoig_szam = stored->Adoig_szam;
        result.NBK_KOD = stored->NBK_KOD;
    }
    result.Bankszamla = masked(result.Bankszamla, emptyAccount);
    result.Adoig_szam = masked(result.Adoig_szam, emptyTaxNumber);
    result.Login = station.setup.value(u"KJELO"_s, u"Login"_s);
    result.Password = station.setup.value(u"KJELO"_s, u"Password"_s);
    return result;
}

std::optional<CheckFailure> checkInstitutionFields(const InstitutionFields& fields) {
    if (const auto failure = firstFailure(checks, fields)) return failure;
    const auto refused = [](const QString& what, const QString& field) {
        return CheckFailure{u"Hiba: %1 nem tárolható! Legfeljebb 39 betű lehet, idézőjelek és szélső "
                            "szóközök nélkül, a magyar kódlap betűivel."_s.arg(what),
                            u"Hiba"_s, Icon::critical, field};
    };
    if (!keepsInSetup(fields.Login)) return refused(u"a bejelentkező név"_s, u"Login"_s);
    if (!keepsInSetup(fields.Password)) return refused(u"a jelszó"_s, u"Password"_s);
    return std::nullopt;
}

void storeInstitution(Workstation& station, const InstitutionFields& fields) {
    Database& data = station.files[DataFile::tetdata];
    Transaction transaction(data);
    const QString street = fields.cim.trimmed();
    const ColumnValue values[] = {
        {"Int_nev", fields.Int_nev.trimmed()},
        {"Gyogyi_kod", fields.Gyogyi_kod.trimmed()},
        {"Orv_kod", fields.Orv_kod.trimmed()},
        {"Szakrend_kod", fields.Szakrend_kod.trimmed()},
        {"irsz", fields.irsz.trimmed()},
        {"City", fields.City.trimmed()},
        {"cim", street.isEmpty() ? u" "_s : street},
        {"Bankszamla", fields.Bankszamla},
        {"Adoig_szam", fields.Adoig_szam},
        {"NBK_KOD", fields.NBK_KOD.trimmed()},
    };
    writeFirstRow(data, "intezet", values);
    transaction.commit();
}

void storeLogin(Workstation& station, const InstitutionFields& fields) {
    try {
        station.setup.setValues(u"KJELO"_s, {{u"Login"_s, fields.Login}, {u"Password"_s, fields.Password}});
    } catch (const Fault& fault) {
        throw Fault(fault.number(),
                    u"Az intézet adatainak tárolása megtörtént, de a bejelentkező adatoké nem: %1"_s.arg(
                        fault.text()));
    }
}

bool storeWorkstationLabel(Workstation& station, const QString& label) {
    if (label.trimmed().isEmpty()) {
        station.dialogue.tell(u"Nem maradhat üresen a gépazonosító mező!"_s, u"Figyelmeztetés"_s);
        return false;
    }
    // Shorter labels give keys that come round again, and two machines must never give the same one.
    const QString letters = label.trimmed();
    if (letters.size() != labelLength ||
        !std::ranges::all_of(letters, [](QChar c) { return c.isLetterOrNumber(); }) ||
        code_page::toUnicode(code_page::fromUnicode(letters)) != letters) {
        station.dialogue.tell(u"A gépazonosító pontosan három betűből vagy számjegyből áll!"_s,
                              u"Figyelmeztetés"_s);
        return false;
    }
    Database& data = station.files[DataFile::tetdata];
    Transaction transaction(data);
    const ColumnValue value{"Gepazon", label.trimmed()};
    writeFirstRow(data, "Gepazonosito", {&value, 1});
    transaction.commit();
    return true;
}

} // namespace vandrel
