// Where a new sheet gets its key, unit, doctor and journal number from, and the mending of lost counters.
#include "sheet/counters.h"
#include "sheet/new_sheet.h"
#include "sheet/sheet_fields.h"
#include "sheet/sheet_settings.h"
#include "support/sheet_samples.h"

using namespace Qt::StringLiterals;

namespace vandrel::test {

TEST(NewSheet, OfAnEmptyProgram) {
    TestWorkstation station;
    station.dialogue.expect(u"Üres a gépazonosító!"_s);
    const SheetFields sheet = makeNewSheet(station.workstation);
    EXPECT_EQ(sheet.Azonosito, u"0000001"_s); // goes on without a prefix
    EXPECT_EQ(sheet.Szakrend, QString());
    EXPECT_EQ(sheet.Orvkod, QString());
    EXPECT_EQ(sheet.Naplo, u"1"_s);
    EXPECT_EQ(sheet.F_datum, u"2008.04.03."_s);
    EXPECT_EQ(sheet.F_ido, u"14:05"_s);
    EXPECT_EQ(sheet.Edatum, u"    .  .  ."_s);
    EXPECT_EQ(sheet.Enaplo, u"0"_s);
    EXPECT_EQ(sheet.Igenylo, QString());
    EXPECT_EQ(sheet.Gyogyfurd, u"0"_s);
    EXPECT_FALSE(sheet.correction);
    for (const UserField& field : userFields(station.workstation))
        EXPECT_FALSE(field.inUse());
}

TEST(NewSheet, UnitDoctorAndJournal) {
    LabelledStation station;
    // The last by key, not by entry; blanks are empty on the form.
    station.data().executeScript("insert into BETEG (AZONOSITO,SZAKREND,ORVKOD) values "
                                 "('ABC0000002','010000002','22222'), ('ABC0000001','010000001','11111');"
                                 "update AZONOSIT set END_AZON='ABC0000041';");
    SheetFields fields = makeNewSheet(station.workstation);
    EXPECT_EQ(fields.Azonosito, u"ABC0000042"_s);
    EXPECT_EQ(fields.Szakrend, u"010000002"_s);
    EXPECT_EQ(fields.Orvkod, u"22222"_s); // a unit without a row keeps the last sheet's doctor
    EXPECT_EQ(fields.Naplo, u"1"_s);

    station.data().executeScript("insert into [DEFAULT] values ('010000002','33333',1299,0);");
    fields = makeNewSheet(station.workstation);
    EXPECT_EQ(fields.Orvkod, u"33333"_s);
    EXPECT_EQ(fields.Naplo, u"1300"_s);

    station.data().executeScript("update [DEFAULT] set ORVKOD=null, NAPLO=null;");
    fields = makeNewSheet(station.workstation);
    EXPECT_EQ(fields.Orvkod, QString()); // though the last sheet had one
    EXPECT_EQ(fields.Naplo, u"1"_s);

    // A last sheet whose unit is Null, or a blank, gives an empty field, not the doctor of some other unit.
    station.data().executeScript("update BETEG set SZAKREND=null, ORVKOD=' ' where AZONOSITO='ABC0000002';"
                                 "insert into [DEFAULT] values (null,'44444',7,0), (' ','55555',8,0);");
    fields = makeNewSheet(station.workstation);
    EXPECT_EQ(fields.Szakrend + u'/' + fields.Orvkod + u'/' + fields.Naplo, u"//1"_s);

    EXPECT_FALSE(unitDefaults(station.workstation, u"01000000"_s).found);
    EXPECT_TRUE(unitDefaults(station.workstation, u" 010000002 "_s).found);
}

TEST(NewSheet, RunningNumber) {
    LabelledStation station;
    const struct {
        const char* last;
        const char16_t* next;
        int fault;
    } cases[] = {
        {"ABC0000000", u"0000001", 0},
        {"XYZ0000009", u"0000010", 0}, // the label before it does not matter
        {"ABC9999998", u"9999999", 0},
        {"ABC9999999", u"", fault::overflow},
        {"ABCx00000y", u"", fault::typeMismatch},
        {"", u"0000001", 0},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.last);
        station.data().execute("update AZONOSIT set END_AZON=?1", c.last);
        QString number;
        const int raised = faultNumberOf([&] { number = nextRunningNumber(station.workstation); });
        EXPECT_EQ(number, QString::fromUtf16(c.next));
        EXPECT_EQ(raised, c.fault);
    }
}

TEST(NewSheet, InstitutionAndUserFields) {
    LabelledStation station;
    station.data().executeScript(
        "insert into intezet (Int_nev,irsz,City,cim) values ('Rendelő','7621','Pécs','Fő tér 1.');"
        "update EGYEBPAR set Felh2_nev='Sorszám', Felh2_hossz='12';");
    EXPECT_EQ(institutionLines(station.workstation).address, u"7621 - Pécs, Fő tér 1."_s);
    station.data().execute("update intezet set irsz=' '");
    EXPECT_EQ(institutionLines(station.workstation).address, u"Pécs, Fő tér 1."_s);
    station.data().execute("update intezet set cim=null");
    EXPECT_EQ(institutionLines(station.workstation).address, u"Pécs"_s);
    const auto users = userFields(station.workstation);
    EXPECT_FALSE(users[0].inUse());
    EXPECT_EQ(users[1].caption, u"Sorszám"_s);
    EXPECT_EQ(users[1].length, 12);
    station.data().execute("delete from EGYEBPAR");
    EXPECT_FALSE(userFields(station.workstation)[1].inUse());
}

TEST(MendCounters, MovesBehindTheSheetsThatWereStored) {
    LabelledStation station;
    station.data().executeScript(
        "update AZONOSIT set END_AZON='ABC0000005', Tp_naplo=9;"
        "insert into [DEFAULT] values ('010000001','11111',10,77), ('010000002','22222',20,0);"
        "insert into BETEG (AZONOSITO,SZAKREND,ORVKOD,NAPLO) values ('ABC0000006','010000001',' ','11'), "
        "('ABC0000007','010000003','33333','1'), ('ABC0000009','010000002','99999','99');");
    repairCounters(station.workstation);
    EXPECT_EQ(firstText(station.data(), "select END_AZON||Tp_naplo from AZONOSIT"), u"ABC00000079"_s);
    EXPECT_EQ(firstText(station.data(),
                        "select group_concat(SZAKREND||','||ORVKOD||','||NAPLO||','||TN,'; ') "
                        "from [DEFAULT]"),
              u"010000001,11111,11,77; 010000002,22222,20,0; 010000003,33333,1,0"_s);
    // With nothing lost, not a byte of the file changes.
    const QByteArray before = fileBytes(station.path(u"tetdata.mdb"_s));
    repairCounters(station.workstation);
    EXPECT_EQ(fileBytes(station.path(u"tetdata.mdb"_s)), before);
}

TEST(MendCounters, TheNextNewSheetNeverGetsAStoredKey) {
    LabelledStation station;
    station.data().executeScript(
        "insert into BETEG (AZONOSITO,SZAKREND,ORVKOD,NAPLO) values ('ABC0000001','010000001','11111','7');"
        "create trigger broken before update on AZONOSIT begin select raise(abort,'no'); end;");
    // As long as the counters cannot be written there is no key at all.
    EXPECT_NE(faultNumberOf([&] { makeNewSheet(station.workstation); }), 0);
    station.data().executeScript("drop trigger broken");
    const SheetFields sheet = makeNewSheet(station.workstation);
    EXPECT_EQ(sheet.Azonosito + u'/' + sheet.Naplo, u"ABC0000002/8"_s);
}

TEST(MendCounters, WithoutALabelTheNumberComesRound) {
    TestWorkstation station;
    station.data().executeScript("update AZONOSIT set END_AZON='0010000';"
                                 "insert into BETEG (AZONOSITO) values ('0000001'), ('0000002');");
    repairCounters(station.workstation);
    EXPECT_EQ(firstText(station.data(), "select END_AZON from AZONOSIT"), u"0010000"_s);
    station.dialogue.expect(u"Üres a gépazonosító!"_s);
    EXPECT_EQ(faultNumberOf([&] { makeNewSheet(station.workstation); }), fault::dataConversion);
}

} // namespace vandrel::test
