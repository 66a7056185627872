// The writing of a sheet: what lands where, what a fault leaves, and how the counters move.
#include "sheet/sheet_store.h"

#include "platform/format.h"
#include "sheet/new_sheet.h"
#include "sheet/sheet_fields.h"
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
    int faultOfStore(const SheetFields& fields) {
        return faultNumberOf([&] { storeSheet(station.workstation, fields); });
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
    EXPECT_EQ(stored("AZONOSITO||'|'||SZEM_SZAM||'|'||F_DATUM||'|'||F_IDO||'|'||BALESET1||'|'||BALESET2"),
              u"ABC0000001|123456788|2008.04.03.|14:05:00|2|1"_s);
    EXPECT_EQ(stored("ElszNyil||'|'||ENAPLO||'|'||TerReszlDij||'|'||VizDijOsszeg||'|'||FLOPPY||FLOPPY2||JAV"),
              u"10|0|0.0|300|000"_s);
    // Empty, blank or left out: each column keeps its own kind.
    for (const char* blank : {"IGENYLO", "DIAG1", "DIAG5", "ER_AZON", "NOTE", "VizitDij", "VizitdijFizMod"})
        EXPECT_EQ(stored(blank), u" "_s) << blank;
    for (const char* left : {"BeutaloKelte", "EDATUM", "FELH1", "T_DATUM"})
        EXPECT_EQ(stored(left), u"<null>"_s) << left;
    EXPECT_EQ(stored("BeutIndok||BeutOrvos"), QString());
    EXPECT_EQ(stored("END_AZON", "AZONOSIT"), u"ABC0000001"_s);
    EXPECT_EQ(stored("SZAKREND||'/'||ORVKOD||'/'||NAPLO||'/'||TN", "[DEFAULT]"), u"010000001/12345/1/0"_s);

    const SheetFields next = makeNewSheet(station.workstation);
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
    EXPECT_EQ(makeNewSheet(station.workstation).Naplo, u"1201"_s);
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
    EXPECT_EQ(faultOfStore(fields), fault::noCurrentRecord);
}

TEST_F(SheetStore, ATajWithBlanksAroundItFindsItsPatient) {
    SheetFields fields = goodSheet(station.workstation);
    fields.Szem_szam = u" 123456788 "_s;
    store(fields, Answer::yes);
    EXPECT_EQ(stored("TAJ", "Paciensek") + stored("SZEM_SZAM"), u"123456788123456788"_s);
    fields = goodSheet(station.workstation);
    fields.Szem_szam = u"123456788 "_s;
    fields.City = u"Pécs"_s;
    store(fields); // known: nothing is asked
    EXPECT_EQ(stored("group_concat(City)", "Paciensek"), u"Pécs"_s);
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
        EXPECT_EQ(faultOfStore(fields), c.fault) << QString::fromUtf16(c.text).toStdString();
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
    EXPECT_NE(faultOfStore(fields), 0);
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
    EXPECT_NE(faultOfStore(fields), 0);
    EXPECT_EQ(station.count("BETEG"), 1);                       // the sheet is safe
    EXPECT_EQ(stored("END_AZON", "AZONOSIT"), u"0000000000"_s); // both counters stayed
    // A second store of the same new sheet would make two sheets under one key.
    station.data().executeScript("drop trigger broken");
    EXPECT_EQ(faultOfStore(fields), fault::dataConversion);
    EXPECT_EQ(station.count("BETEG"), 1);
    EXPECT_EQ(makeNewSheet(station.workstation).Azonosito, u"ABC0000002"_s);
}

// An open box must not lock the file: another program may want it meanwhile.
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

// A second program on the same folder that is quicker: it stores under the same key, or enters the patient,
// while the first one's question is shown.
class QuickerProgram : public Dialogue {
  public:
    explicit QuickerProgram(std::function<void()> store) : m_store(std::move(store)) {}
    Answer show(const Message&) override {
        if (const std::function<void()> store = std::exchange(m_store, {})) store();
        return Answer::yes;
    }

  private:
    std::function<void()> m_store;
};

TEST_F(SheetStore, TwoProgramsNeverShareAKeyOrAPatient) {
    SheetFields other = goodSheet(station.workstation);
    QuickerProgram quicker([&] { store(other, Answer::yes); });
    Workstation slower(station.workstation.folder, quicker, station.clock, station.packer);
    EXPECT_EQ(faultNumberOf([&] { storeSheet(slower, goodSheet(slower)); }), fault::dataConversion);
    EXPECT_EQ(station.count("BETEG"), 1);
    EXPECT_EQ(station.count("Paciensek"), 1);

    other = goodSheet(station.workstation);
    other.Szem_szam = u"111111110"_s;
    QuickerProgram again([&] { store(other, Answer::yes); });
    Workstation late(station.workstation.folder, again, station.clock, station.packer);
    SheetFields same = other;
    same.Azonosito = u"XYZ0000001"_s; // another machine's key
    storeSheet(late, same);
    EXPECT_EQ(station.count("Paciensek where TAJ='111111110'"), 1);
    EXPECT_EQ(station.count("BETEG where PaciensId=2"), 2);
}

TEST_F(SheetStore, StepsOfOtherRooms) {
    QStringList ran;
    const auto step = [&](StoreTime time, const QString& name, int fault = 0) {
        return StoreStep{time, [&ran, name, fault](StoreRun& run) {
                             ran << name + QString::number(run.patientId) +
                                        (run.station.files[DataFile::tetdata].inTransaction() ? u"*"_s
                                                                                              : u""_s);
                             if (fault != 0) throw Fault(fault, u"nem"_s);
                         }};
    };
    StoreSteps steps;
    station.workstation.storeSteps = &steps;
    steps.offered = {step(StoreTime::after, u"after"_s), step(StoreTime::inside, u"inside"_s),
                     step(StoreTime::before, u"before"_s)};
    store(goodSheet(station.workstation), Answer::yes);
    EXPECT_EQ(ran, QStringList({u"before0"_s, u"inside1*"_s, u"after1"_s}));

    const qint64 sheets = station.count("BETEG");
    for (const StoreTime time : {StoreTime::before, StoreTime::inside, StoreTime::after}) {
        steps.offered = {step(time, u"x"_s, fault::diskFull)};
        const SheetFields fields = goodSheet(station.workstation);
        EXPECT_EQ(faultOfStore(fields), fault::diskFull);
        EXPECT_EQ(station.count("BETEG"), time == StoreTime::after ? sheets + 1 : sheets);
        EXPECT_EQ(stored("END_AZON", "AZONOSIT"), u"ABC0000001"_s);
    }
}

// Room for no page, for one, ... until the whole store fits: it is wholly done or wholly undone.
TEST_F(SheetStore, OnAFullDiskAllOrNothing) {
    Database& data = station.data();
    station.dialogue.takeAll();
    int refused = 0;
    for (int pages = 0, stored = 0; stored == 0; ++pages) {
        SheetFields fields = goodSheet(station.workstation);
        fields.Szem_szam = QString::number(200'000'000 + pages);
        fields.Neve = fields.City = fields.Cim = fields.Anyja_neve = QString(900, u'N');
        fields.NOTE = QString(20'000, u'M');
        const qint64 sheets = station.count("BETEG"), patients = station.count("Paciensek");
        const QString last = firstText(data, "select END_AZON from AZONOSIT");
        const int room = firstText(data, "pragma page_count").toInt() + pages;
        data.query("pragma max_page_count=" + std::to_string(room)).next();
        const int fault = faultOfStore(fields);
        stored = fault == 0;
        refused += fault == fault::dataFileFull;
        data.query("pragma max_page_count=1000000").next();
        EXPECT_FALSE(data.inTransaction());
        EXPECT_EQ(data.quickCheck(), u"ok"_s);
        EXPECT_EQ(station.count("BETEG"), sheets + stored);
        EXPECT_EQ(station.count("Paciensek"), patients + stored);
        EXPECT_EQ(firstText(data, "select END_AZON from AZONOSIT") != last, stored == 1);
        EXPECT_EQ(faultOfStore(fields), stored ? fault::dataConversion : 0) << "once, when there is room";
        ASSERT_LT(pages, 30);
    }
    EXPECT_GT(refused, 2);
}

} // namespace vandrel::test
