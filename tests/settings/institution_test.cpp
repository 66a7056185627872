// The institution's checks in their order, its store, its login in setup.ini, and the workstation's label.
#include "settings/institution.h"

#include "foundation/look_ups.h"

#include "foundation/look_ups.h"
#include "support/test_workstation.h"

namespace vandrel::test {

namespace {

InstitutionFields good() {
    InstitutionFields result;
    result.Int_nev = QStringLiteral("Dr. O'Hara rendelője");
    result.Gyogyi_kod = QStringLiteral("1234");
    result.Orv_kod = QStringLiteral("54321");
    result.Szakrend_kod = QStringLiteral("123456789");
    result.irsz = QStringLiteral("1011");
    result.City = QStringLiteral("Budapest");
    result.cim = QStringLiteral("Fő utca 1.");
    result.Bankszamla = QStringLiteral("11111111-22222222-33333333");
    result.Adoig_szam = QStringLiteral("12345678-1-42");
    result.NBK_KOD = QStringLiteral("N123");
    result.Login = QStringLiteral("őrző");
    result.Password = QStringLiteral("titok=[1];");
    return result;
}

} // namespace

TEST(InstitutionFields, ChecksInOrder) {
    struct Step {
        QString InstitutionFields::*member;
        const char* value;
        const char* field;
        const char* status;
        const char* box;
    };
    // From the last check to the first: each fault hides those behind it.
    const Step steps[] = {
        {&InstitutionFields::NBK_KOD, "123 ", "NBK_KOD", "", "Hiba: az intézet NBK kódja 4 jegyű!"},
        {&InstitutionFields::Szakrend_kod, "12345678", "Szakrend_kod", "",
         "Hiba: a szakrendelő kódja 9 jegyű!"},
        {&InstitutionFields::Orv_kod, "1234", "Orv_kod", "", "Hiba: az ellátó orvos kódja 5 jegyű!"},
        {&InstitutionFields::Gyogyi_kod, "123", "Gyogyi_kod", "", ""},
        {&InstitutionFields::NBK_KOD, " ", "NBK_KOD", " Hiba: Az intézet NBK kódja mező üresen maradt!", ""},
        {&InstitutionFields::City, "", "City", " Hiba :Az intézet neve mező üresen maradt!", ""},
        {&InstitutionFields::Szakrend_kod, "", "Szakrend_kod",
         " Hiba: A szakrendelő kódja mező üresen maradt!", ""},
        {&InstitutionFields::Orv_kod, "", "Orv_kod", " Hiba: Az ellátó orvos kódja mező üresen maradt!", ""},
        {&InstitutionFields::Gyogyi_kod, "  ", "Gyogyi_kod",
         " Hiba: Az intézet GYÓGYINFOK kódja mező üresen maradt!", ""},
        {&InstitutionFields::Int_nev, "   ", "Int_nev", " Hiba: Az intézet neve mező üresen maradt!", ""},
    };
    InstitutionFields fields = good();
    EXPECT_EQ(checkInstitutionFields(fields).field, QString());
    for (const Step& step : steps) {
        SCOPED_TRACE(step.field);
        fields.*step.member = QString::fromUtf8(step.value);
        const InstitutionFault fault = checkInstitutionFields(fields);
        EXPECT_EQ(fault.field, QLatin1String(step.field));
        EXPECT_EQ(fault.status, QString::fromUtf8(step.status));
        EXPECT_EQ(fault.box, QString::fromUtf8(step.box));
    }
}

TEST(InstitutionFields, LoginThatSetupIniWouldChangeIsRefused) {
    const QString longest(39, QLatin1Char('a'));
    struct Case {
        QString login;
        bool kept;
    };
    const Case cases[] = {{longest, true},
                          {longest + QLatin1Char('a'), false},
                          {QStringLiteral("\"a\""), false},
                          {QStringLiteral("'"), true},
                          {QStringLiteral("a "), false},
                          {QStringLiteral("жук"), false},
                          {QStringLiteral("a\n[VENY]"), false},
                          {QString(), true}};
    for (const Case& entry : cases) {
        SCOPED_TRACE(entry.login.toStdString());
        TestWorkstation test;
        InstitutionFields fields = good();
        fields.Login = entry.login;
        EXPECT_EQ(checkInstitutionFields(fields).field, entry.kept ? QString() : QStringLiteral("Login"));
        if (!entry.kept) continue;
        storeLogin(test.workstation, fields);
        EXPECT_EQ(loadInstitution(test.workstation).Login, entry.login);
        EXPECT_EQ(loadInstitution(test.workstation).Password, QStringLiteral("titok=[1];"));
    }
}

TEST(InstitutionFields, EmptyTableGivesEmptyFieldsAndMasks) {
    TestWorkstation test;
    const InstitutionFields empty = loadInstitution(test.workstation);
    EXPECT_EQ(empty.Int_nev, QString());
    EXPECT_EQ(empty.Bankszamla, QStringLiteral("        -        -        "));
    EXPECT_EQ(empty.Adoig_szam, QStringLiteral("        - -  "));
    test.data().execute("insert into intezet (Int_nev, Bankszamla, Adoig_szam) values ('x', '0', ' 0')");
    const InstitutionFields zeros = loadInstitution(test.workstation);
    EXPECT_EQ(zeros.Int_nev, QStringLiteral("x"));
    EXPECT_EQ(zeros.Bankszamla, emptyAccount);
    EXPECT_EQ(zeros.Adoig_szam, emptyTaxNumber);
}

TEST(InstitutionFields, StoreAddsOneRowAndEditsIt) {
    TestWorkstation test;
    InstitutionFields fields = good();
    storeInstitution(test.workstation, fields);
    fields.Int_nev = QStringLiteral("'; drop table intezet; --");
    fields.cim = QString();
    fields.Adoig_szam = emptyTaxNumber;
    storeInstitution(test.workstation, fields);
    EXPECT_EQ(firstText(test.data(), "select count(*) from intezet"), QStringLiteral("1"));
    EXPECT_EQ(
        firstText(test.data(),
                  "select Int_nev||'|'||Gyogyi_kod||'|'||Orv_kod||'|'||Szakrend_kod||'|'||irsz||'|'||City"
                  "||'|'||cim||'|'||Bankszamla||'|'||Adoig_szam||'|'||NBK_KOD from intezet"),
        QStringLiteral("'; drop table intezet; --|1234|54321|123456789|1011|Budapest| "
                       "|11111111-22222222-33333333|        - -  |N123"));
    const InstitutionFields loaded = loadInstitution(test.workstation);
    EXPECT_EQ(loaded.Int_nev, fields.Int_nev);
    EXPECT_EQ(loaded.cim, QString());
}

TEST(InstitutionFields, TownOfPostalCodePrefix) {
    TestWorkstation test;
    test.dictionaries().executeScript("insert into IRSZ (IRSZ, NEV) values ('1011', 'Budapest I.'), ('9700', "
                                      "'Szombathely'), ('9701', 'Másik'), ('97', 'Rövid')");
    const std::pair<const char*, const char*> cases[] = {
        {"", ""},  {"1", "Budapest I."}, {"97", "Szombathely"}, {"9701", "Másik"}, {"97011", ""},
        {"%", ""}, {"' or 1=1 --", ""}};
    for (const auto& [typed, town] : cases)
        EXPECT_EQ(townByPrefix(test.workstation, QString::fromUtf8(typed)), QString::fromUtf8(town)) << typed;
}

TEST(WorkstationLabel, EmptyIsRefusedAndTheRowIsAddedOrEdited) {
    TestWorkstation test;
    const QString refusal = QStringLiteral("Nem maradhat üresen a gépazonosító mező!");
    test.dialogue.expect(refusal, QStringLiteral("Figyelmeztetés"));
    EXPECT_FALSE(storeWorkstationLabel(test.workstation, QStringLiteral("  ")));
    EXPECT_EQ(firstText(test.data(), "select Gepazon from Gepazonosito"), QString(QLatin1String("")));
    EXPECT_TRUE(storeWorkstationLabel(test.workstation, QStringLiteral("A01")));
    EXPECT_TRUE(storeWorkstationLabel(test.workstation, QStringLiteral("B'2")));
    EXPECT_EQ(firstText(test.data(), "select group_concat(Gepazon) from Gepazonosito"),
              QStringLiteral("B'2"));
    EXPECT_EQ(workstationLabel(test.workstation), QStringLiteral("B'2"));
    EXPECT_EQ(firstText(test.data(), "select END_AZON from AZONOSIT"), QStringLiteral("0000000000"));
    test.data().execute("delete from Gepazonosito");
    EXPECT_EQ(workstationLabel(test.workstation), QString());
    EXPECT_TRUE(storeWorkstationLabel(test.workstation, QStringLiteral("C03")));
    EXPECT_EQ(workstationLabel(test.workstation), QStringLiteral("C03"));
}

} // namespace vandrel::test
