// The writing of a sheet: what lands where, what a fault leaves, and how the counters move.
#include "sheet/sheet_store.h"

#include "platform/format.h"
#include "sheet/patient_register.h"
#include "support/sheet_samples.h"

#include <sqlite3.h>

using namespace Qt::StringLiterals;

namespace vandrel::test {

class SheetStore : public testing::Test {
  protected:
    // A column of the only sheet or patient: text, or <null>.
    QString stored(const std::string& column, const std::string& table = "BETEG") {
        return firstText(station.data(), "select ifnull(" + column + ",'<null>') from " + table);
    }
    int faultOf(const SheetFields& fields) {
        try {
            storeSheet(station.workstation, fields);
        } catch (const Fault& fault) {
            return fault.number();
        }
        return 0;
    }
    void store(const SheetFields& fields, std::optional<Answer> enter = std::nullopt) {
        if (enter) station.expectRegisterQuestion(*enter);
        station.expectStored();
        EXPECT_EQ(storeSheet(station.workstation, fields).outcome, StoreOutcome::storedDone);
    }
    LabelledStation station;
};

TEST_F(SheetStore, NewSheetOfANewPatient) {
    station.data().execute("update Utolsok set UTPaciens=41");
    SheetFields fields = goodSheet(station.workstation);
    fields.Baleset = u"22"_s;
    fields.Baleset[1] = u'1';
    fields.VizDijOsszeg = u"300"_s;
    station.expectRegisterQuestion(Answer::yes);
    station.expectStored(Answer::yes);
    EXPECT_EQ(storeSheet(station.workstation, fields).outcome, StoreOutcome::storedAnother);

    EXPECT_EQ(stored("PaciensId"), u"42"_s);
    EXPECT_EQ(stored("ID||TAJ||Neve||KgyLe||Szul_Dat", "Paciensek"),
              u"42123456788Kovács Éva    .  .  .1970.05.06."_s);
    EXPECT_EQ(stored("UTPaciens", "Utolsok"), u"42"_s);
    const std::pair<const char*, const char16_t*> columns[] = {
        {"AZONOSITO", u"ABC0000001"},
        {"SZEM_SZAM", u"123456788"},
        {"F_DATUM", u"2008.04.03."},
        {"F_IDO", u"14:05:00"},
        {"BALESET1", u"2"},
        {"BALESET2", u"1"},
        {"IGENYLO", u" "},
        {"DIAG1", u" "},
        {"DIAG5", u" "},
        {"ER_AZON", u" "},
        {"NOTE", u" "},
        {"VizitDij", u" "},
        {"VizitdijFizMod", u" "},
        {"ElszNyil", u"10"},
        {"ENAPLO", u"0"},
        {"BeutIndok", u""},
        {"BeutOrvos", u""},
        {"TerReszlDij", u"0.0"},
        {"VizDijOsszeg", u"300"},
        {"BeutaloKelte", u"<null>"},
        {"EDATUM", u"<null>"},
        {"FELH1", u"<null>"},
        {"T_DATUM", u"<null>"},
        {"FLOPPY", u"0"},
        {"FLOPPY2", u"0"},
        {"JAV", u"0"},
    };
    for (const auto& [column, value] : columns)
        EXPECT_EQ(stored(column), QString::fromUtf16(value)) << column;
    EXPECT_EQ(stored("END_AZON", "AZONOSIT"), u"ABC0000001"_s);
    EXPECT_EQ(stored("SZAKREND||'/'||ORVKOD||'/'||NAPLO||'/'||TN", "[DEFAULT]"), u"010000001/12345/1/0"_s);

    const SheetFields next = makeNewSheet(station.workstation).fields;
    EXPECT_EQ(next.Azonosito + next.Szakrend + next.Orvkod + next.Naplo, u"ABC0000002010000001123452"_s);
}

TEST_F(SheetStore, PatientNotEnteredIsAskedForAgain) {
    for (int i = 1; i <= 2; ++i) {
        store(goodSheet(station.workstation), Answer::no);
        EXPECT_EQ(station.count("BETEG where PaciensId=0"), i);
    }
    EXPECT_EQ(station.count("Paciensek"), 0);
}

TEST_F(SheetStore, KnownPatientGetsOnlyTheChangedFields) {
    store(goodSheet(station.workstation), Answer::yes);
    station.data().executeScript(
        "update Paciensek set Neve=' Kovács Éva ', City=null;"
        "create table written (name); create trigger t after update on Paciensek begin insert into written "
        "values (case when old.City is not new.City then 'City' when old.Irszam<>new.Irszam then 'Irszam' "
        "else "
        "'Anyja_neve' end); end;");
    SheetFields fields = goodSheet(station.workstation);
    fields.Irszam = u"1012"_s;
    fields.Anyja_neve = u"őri anna"_s; // the case counts
    store(fields);
    EXPECT_EQ(stored("group_concat(name)", "written"), u"Irszam,City,Anyja_neve"_s);
    EXPECT_EQ(stored("Irszam||Neve", "Paciensek"), u"1012 Kovács Éva "_s);
    EXPECT_EQ(station.count("BETEG where PaciensId=1"), 2);
}

TEST_F(SheetStore, CountersOfAKnownUnit) {
    station.data().execute("insert into [DEFAULT] values ('010000001','99999',5,77)");
    SheetFields fields = goodSheet(station.workstation);
    fields.Orvkod = u" "_s; // leaves the last doctor
    fields.Naplo = u"1200"_s;
    store(fields, Answer::no);
    EXPECT_EQ(stored("SZAKREND||'/'||ORVKOD||'/'||NAPLO||'/'||TN", "[DEFAULT]"),
              u"010000001/99999/1200/77"_s);
    EXPECT_EQ(station.count("[DEFAULT]"), 1);
    EXPECT_EQ(makeNewSheet(station.workstation).fields.Naplo, u"1201"_s);
}

TEST_F(SheetStore, Correction) {
    SheetFields fields = goodSheet(station.workstation);
    fields.Edatum = u"2008.01.01."_s;
    fields.Igenylo = u"020000001"_s;
    store(fields, Answer::yes);
    station.data().executeScript(
        "update BETEG set FLOPPY=1, FLOPPY2=1, TIPUS='t'; update [DEFAULT] set NAPLO=50; "
        "update AZONOSIT set END_AZON='ABC0000009';");
    fields.correction = true;
    fields.Naplo = u"12/a"_s; // text on the sheet; the counters are not touched
    fields.Edatum = fields.F_datum = format::emptyDate;
    fields.Igenylo.clear();
    fields.Jav = u"1"_s;
    EXPECT_EQ(storeSheet(station.workstation, fields).outcome, StoreOutcome::stored);
    EXPECT_EQ(station.count("BETEG"), 1);
    EXPECT_EQ(stored("NAPLO||EDATUM||F_DATUM||IGENYLO||JAV||FLOPPY||FLOPPY2||TIPUS"),
              u"12/a2008.01.01.2008.04.03. 100t"_s);
    EXPECT_EQ(stored("NAPLO", "[DEFAULT]"), u"50"_s);
    EXPECT_EQ(stored("END_AZON", "AZONOSIT"), u"ABC0000009"_s);

    fields.Azonosito = u"ABC0000077"_s;
    EXPECT_EQ(faultOf(fields), fault::noCurrentRecord);
}

TEST_F(SheetStore, NumbersAreRefusedBeforeAnythingIsWritten) {
    const struct {
        QString SheetFields::*field;
        const char16_t* text;
        int fault;
    } cases[] = {
        {&SheetFields::VizDijOsszeg, u"32768", fault::overflow},
        {&SheetFields::VizDijOsszeg, u"300 Ft", fault::typeMismatch},
        {&SheetFields::TerReszlDij, u"sok", fault::typeMismatch},
        {&SheetFields::Naplo, u"12/a", fault::typeMismatch},
        {&SheetFields::Naplo, u"99999999999", fault::overflow},
    };
    for (const auto& c : cases) {
        SheetFields fields = goodSheet(station.workstation);
        fields.*c.field = QString::fromUtf16(c.text);
        EXPECT_EQ(faultOf(fields), c.fault) << QString::fromUtf16(c.text).toStdString();
    }
    EXPECT_EQ(station.count("BETEG") + station.count("Paciensek"), 0);
    SheetFields fields = goodSheet(station.workstation);
    fields.VizDijOsszeg = u"32767"_s;
    fields.TerReszlDij = u"1250,5"_s;
    store(fields, Answer::no);
    EXPECT_EQ(stored("VizDijOsszeg||'/'||TerReszlDij"), u"32767/1250.5"_s);
}

TEST_F(SheetStore, FaultInMidStoreLeavesNothing) {
    const SheetFields fields = goodSheet(station.workstation);
    station.data().executeScript(
        "create trigger broken before insert on BETEG begin select raise(abort,'no'); end;");
    station.expectRegisterQuestion(Answer::yes);
    EXPECT_NE(faultOf(fields), 0);
    EXPECT_EQ(station.count("Paciensek"), 0);
    EXPECT_EQ(stored("UTPaciens", "Utolsok"), u"0"_s);
    EXPECT_FALSE(station.data().inTransaction());
    // The same content goes in once the fault is gone.
    station.data().executeScript("drop trigger broken");
    store(fields, Answer::yes);
    EXPECT_EQ(station.count("BETEG"), 1);
}

TEST_F(SheetStore, CountersThatCannotMove) {
    const SheetFields fields = goodSheet(station.workstation);
    station.data().executeScript(
        "create trigger broken before insert on [DEFAULT] begin select raise(abort,'no'); end;");
    station.expectRegisterQuestion(Answer::yes);
    EXPECT_NE(faultOf(fields), 0);
    EXPECT_EQ(station.count("BETEG"), 1);                       // the sheet is safe
    EXPECT_EQ(stored("END_AZON", "AZONOSIT"), u"0000000000"_s); // both counters stayed
    // A second store of the same new sheet would make two sheets under one key.
    station.data().executeScript("drop trigger broken");
    EXPECT_EQ(faultOf(fields), fault::dataConversion);
    EXPECT_EQ(station.count("BETEG"), 1);
    EXPECT_EQ(makeNewSheet(station.workstation).fields.Azonosito, u"ABC0000002"_s);
}

// A box that stands must not hold the file: another program may want it meanwhile.
class LockWatch : public Dialogue {
  public:
    Answer show(const Message&) override {
        locked = locked || data->inTransaction();
        ++shown;
        return Answer::yes;
    }
    Database* data = nullptr;
    bool locked = false;
    int shown = 0;
};

TEST_F(SheetStore, TwoSyncedTransactionsAndNoLockWhileABoxStands) {
    LockWatch watch;
    Workstation workstation(station.workstation.folder, watch, station.clock, station.packer);
    Database& data = workstation.files[DataFile::tetdata];
    watch.data = &data;
    int commits = 0;
    sqlite3_commit_hook(
        data.handle(),
        [](void* count) {
            ++*static_cast<int*>(count);
            return 0;
        },
        &commits);
    storeSheet(workstation, goodSheet(workstation));
    EXPECT_EQ(commits, 2);
    EXPECT_EQ(watch.shown, 2);
    EXPECT_FALSE(watch.locked);
}

TEST_F(SheetStore, HostileTextsComeBackEqual) {
    station.data().execute(
        "update EGYEBPAR set Felh1_nev='a',Felh2_nev='b',Felh3_nev='c',Felh4_nev='d',Felh5_nev='e'");
    const QString hostile =
        u"O'Brien\"]; drop table BETEG;--%_*?#<b>&amp; őŰ \u4e2d "_s + QString(10'000, u'x');
    const QStringList kept = {u"Azonosito"_s, u"Naplo"_s,       u"Szul_dat"_s,    u"Baleset"_s,
                              u"EU_LAP"_s,    u"TerReszlDij"_s, u"VizDijOsszeg"_s};
    const QStringList patient = {
        u"Azon_tipus"_s,     u"Neve"_s,         u"Irszam"_s,  u"City"_s,  u"Cim"_s, u"Anyja_neve"_s,
        u"Leanykori_neve"_s, u"Allampol_rov"_s, u"KgySzam"_s, u"KgyLe"_s, u"Nem"_s};
    const QStringList elsewhere = {u"BEAV"_s,   u"MENNY"_s,   u"BeavJelleg"_s, u"BIZT_ORSZ"_s,
                                   u"CS_NEV"_s, u"KER_NEV"_s, u"BIZT_SZAM"_s};
    SheetFields fields = goodSheet(station.workstation);
    for (const bool correction : {false, true}) {
        fields.correction = correction;
        for (const SheetFieldName& name : sheetFieldNames())
            if (!kept.contains(QLatin1String(name.name)))
                name.of(fields) = QLatin1String(name.name) + hostile + (correction ? u"2"_s : u"1"_s);
        station.expectRegisterQuestion(Answer::yes);
        if (!correction) station.expectStored();
        storeSheet(station.workstation, fields);
        int compared = 0;
        for (const SheetFieldName& name : sheetFieldNames()) {
            const QString field = QLatin1String(name.name);
            if (kept.contains(field) || elsewhere.contains(field)) continue;
            const std::string column = name.name;
            const QString value = patient.contains(field)
                                      ? stored(column, "Paciensek order by rowid desc limit 1")
                                      : stored(column);
            EXPECT_EQ(value, name.of(fields) + (field == u"F_ido" ? u":00"_s : QString())) << column;
            ++compared;
        }
        EXPECT_EQ(compared, static_cast<int>(sheetFieldNames().size()) - 14);
    }
    EXPECT_EQ(findPatientId(station.workstation, fields.Szem_szam), 2);
}

} // namespace vandrel::test
