// The institution's checks in their order, its store, its login in setup.ini, and the workstation's label.
#include "settings/institution.h"

#include "foundation/look_ups.h"

#include "support/test_workstation.h"

using namespace Qt::StringLiterals;

namespace vandrel::test {

namespace {

InstitutionFields good() {
    InstitutionFields result;
    result.Int_nev = u"Dr. O'Hara rendelője"_s;
    result.Gyogyi_kod = u"1234"_s;
    result.Orv_kod = u"54321"_s;
    result.Szakrend_kod = u"123456789"_s;
    result.irsz = u"1011"_s;
    result.City = u"Budapest"_s;
    result.cim = u"Fő utca 1."_s;
    result.Bankszamla = u"11111111-22222222-33333333"_s;
    result.Adoig_szam = u"12345678-1-42"_s;
    result.NBK_KOD = u"N123"_s;
    result.Login = u"őrző"_s;
    result.Password = u"titok=[1];"_s;
    return result;
}

} // namespace

TEST(InstitutionFields, ChecksInOrder) {
    // From the last check to the first: each fault hides those after it.
    const struct {
        QString InstitutionFields::*member;
        const char* value;
        const char* field;
        const char* status;
        const char* box;
    } steps[] = {
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
    EXPECT_FALSE(checkInstitutionFields(fields).has_value());
    for (const auto& step : steps) {
        SCOPED_TRACE(step.field);
        fields.*step.member = QString::fromUtf8(step.value);
        const auto failure = checkInstitutionFields(fields);
        ASSERT_TRUE(failure.has_value());
        EXPECT_EQ(failure->field, QLatin1StringView(step.field));
        const bool inBox = *step.box != 0;
        EXPECT_EQ(failure->message, QString::fromUtf8(inBox ? step.box : step.status));
        EXPECT_EQ(failure->title, inBox ? u"Hiba"_s : QString());
    }
}

TEST(InstitutionFields, LoginThatSetupIniWouldChangeIsRefused) {
    const QString longest(39, 'a'_L1);
    const struct {
        QString login;
        bool kept;
    } cases[] = {{longest, true},  {longest + 'a'_L1, false}, {u"\"a\""_s, false},     {u"'"_s, true},
                 {u"a "_s, false}, {u"жук"_s, false},         {u"a\n[VENY]"_s, false}, {QString(), true}};
    for (const auto& entry : cases) {
        SCOPED_TRACE(entry.login.toStdString());
        TestWorkstation test;
        InstitutionFields fields = good();
        fields.Login = entry.login;
        const auto failure = checkInstitutionFields(fields);
        EXPECT_EQ(failure ? failure->field : QString(), entry.kept ? QString() : u"Login"_s);
        if (!entry.kept) continue;
        storeLogin(test.workstation, fields);
        EXPECT_EQ(loadInstitution(test.workstation).Login, entry.login);
        EXPECT_EQ(loadInstitution(test.workstation).Password, u"titok=[1];"_s);
    }
}

TEST(InstitutionFields, EmptyTableGivesEmptyFieldsAndMasks) {
    TestWorkstation test;
    const InstitutionFields empty = loadInstitution(test.workstation);
    EXPECT_EQ(empty.Int_nev, QString());
    EXPECT_EQ(empty.Bankszamla, u"        -        -        "_s);
    EXPECT_EQ(empty.Adoig_szam, u"        - -  "_s);
    test.data().execute("insert into intezet (Int_nev, Bankszamla, Adoig_szam) values ('x', '0', ' 0')");
    const InstitutionFields zeros = loadInstitution(test.workstation);
    EXPECT_EQ(zeros.Int_nev, u"x"_s);
    EXPECT_EQ(zeros.Bankszamla, emptyAccount);
    EXPECT_EQ(zeros.Adoig_szam, emptyTaxNumber);
}

TEST(InstitutionFields, StoreAddsOneRowAndEditsIt) {
    TestWorkstation test;
    InstitutionFields fields = good();
    storeInstitution(test.workstation, fields);
    fields.Int_nev = u"'; drop table intezet; --"_s;
    fields.cim = QString();
    fields.Adoig_szam = emptyTaxNumber;
    storeInstitution(test.workstation, fields);
    EXPECT_EQ(firstText(test.data(), "select count(*) from intezet"), u"1"_s);
    EXPECT_EQ(
        firstText(test.data(),
                  "select Int_nev||'|'||Gyogyi_kod||'|'||Orv_kod||'|'||Szakrend_kod||'|'||irsz||'|'||City"
                  "||'|'||cim||'|'||Bankszamla||'|'||Adoig_szam||'|'||NBK_KOD from intezet"),
        u"'; drop table intezet; --|1234|54321|123456789|1011|Budapest| "
        "|11111111-22222222-33333333|        - -  |N123"_s);
    const InstitutionFields loaded = loadInstitution(test.workstation);
    EXPECT_EQ(loaded.Int_nev, fields.Int_nev);
    EXPECT_EQ(loaded.cim, QString());
}

TEST(WorkstationLabel, ThreeLettersOrDigitsAreAddedOrEdited) {
    TestWorkstation test;
    const QString refusal = u"Nem maradhat üresen a gépazonosító mező!"_s;
    test.dialogue.expect(refusal, u"Figyelmeztetés"_s);
    EXPECT_FALSE(storeWorkstationLabel(test.workstation, u"  "_s));
    EXPECT_EQ(firstText(test.data(), "select Gepazon from Gepazonosito"), QString(""_L1));
    EXPECT_TRUE(storeWorkstationLabel(test.workstation, u"A01"_s));
    // Keys of other lengths come round again; other letters are none of the reports'.
    for (const QString& label : {u"B"_s, u"B2"_s, u"B'2"_s, u"B 2"_s, u"B234"_s, u"漢漢漢"_s}) {
        test.dialogue.expect(u"A gépazonosító pontosan három betűből vagy számjegyből áll!"_s,
                             u"Figyelmeztetés"_s);
        EXPECT_FALSE(storeWorkstationLabel(test.workstation, label)) << label.toStdString();
    }
    EXPECT_EQ(workstationLabel(test.workstation), u"A01"_s);
    EXPECT_TRUE(storeWorkstationLabel(test.workstation, u" ŐB2 "_s));
    EXPECT_EQ(firstText(test.data(), "select group_concat(Gepazon) from Gepazonosito"), u"ŐB2"_s);
    EXPECT_EQ(firstText(test.data(), "select END_AZON from AZONOSIT"), u"0000000000"_s);
    test.data().execute("delete from Gepazonosito");
    EXPECT_EQ(workstationLabel(test.workstation), QString());
    EXPECT_TRUE(storeWorkstationLabel(test.workstation, u"C03"_s));
    EXPECT_EQ(workstationLabel(test.workstation), u"C03"_s);
}

} // namespace vandrel::test
