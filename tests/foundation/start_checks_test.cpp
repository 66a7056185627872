// What the program tells at its start and at every activation, on healthy, lost and damaged data files.
#include "foundation/start_checks.h"

#include "support/test_workstation.h"

#include <QFile>

using namespace Qt::StringLiterals;

namespace vandrel::test {

namespace {

const QString errorTitle = u"Hiba"_s;

struct Broken {
    DataFile id;
    const char* script; // empty: the file is taken away
    const char* message;
    bool goesOn;
};

} // namespace

TEST(StartChecks, HealthyFolderSaysNothing) {
    TestWorkstation test;
    EXPECT_TRUE(examineDataFiles(test.workstation));
    EXPECT_TRUE(VerzioEllenorzesek(test.workstation));
}

TEST(StartChecks, LostOrDamagedFilesAreNamedAndNeverReplaced) {
    const Broken cases[] = {
        {DataFile::tetdata, "", "Nem található a tetdata.mdb állomány!", false},
        {DataFile::tetmod, "", "Nem található a tetmod.mdb állomány!", false},
        {DataFile::beav, "", "Nem található a beav.mdb állomány!", false},
        {DataFile::diagnos, "", "Nem található a diagnos.mdb állomány!", false},
        {DataFile::tetdata, "drop table BETEG",
         "A(z) tetdata.mdb állományban nem található a(z) BETEG tábla!", false},
        {DataFile::tetmod, "alter table ORVOSOK drop column RANG",
         "A(z) tetmod.mdb állomány ORVOSOK táblájában nem található a(z) RANG mező!", false},
        {DataFile::TAJKapu, "", "Nem található a TAJKapu.mdb állomány!", true},
        {DataFile::TAJKapu, "drop table Ellenor",
         "A(z) TAJKapu.mdb állományban nem található a(z) Ellenor tábla!", true},
    };
    for (const Broken& broken : cases) {
        SCOPED_TRACE(broken.message);
        TestWorkstation test;
        const QString path = test.workstation.files.path(broken.id);
        if (*broken.script != 0)
            test.workstation.files[broken.id].executeScript(broken.script);
        else
            ASSERT_TRUE(QFile::remove(path));
        test.dialogue.expect(QString::fromUtf8(broken.message), errorTitle);
        EXPECT_EQ(examineDataFiles(test.workstation), broken.goesOn);
        EXPECT_EQ(QFile::exists(path), *broken.script != 0);
    }
}

TEST(StartChecks, AScratchFileIsMadeAnew) {
    TestWorkstation test;
    const QString path = test.path(u"tetseged.mdb"_s);
    test.workstation.files[DataFile::tetseged].executeScript("insert into Leval_er (Naplo) values ('1')");
    test.workstation.files.closeAll();
    const QByteArray whole = fileBytes(path);
    const QByteArray empty;
    const struct {
        const char* what;
        std::function<void()> spoil;
    } cases[] = {
        {"missing", [&] { QFile::remove(path); }},
        {"empty", [&] { makeFile(path); }},
        {"no data file", [&] { makeFile(path, QByteArray(5000, 'x')); }},
        {"torn", [&] { makeFile(path, whole.left(whole.size() / 2)); }},
        {"pages of zeros", [&] { makeFile(path, whole.left(4096) + QByteArray(whole.size() - 4096, '\0')); }},
        {"a table short",
         [&] { test.workstation.files[DataFile::tetseged].executeScript("drop table Leval_jav"); }},
    };
    for (const auto& broken : cases) {
        SCOPED_TRACE(broken.what);
        test.workstation.files.closeAll();
        broken.spoil();
        EXPECT_TRUE(examineDataFiles(test.workstation)); // without a word
        EXPECT_EQ(firstText(test.workstation.files[DataFile::tetseged], "select count(*) from Leval_jav"),
                  u"0"_s);
        EXPECT_EQ(test.workstation.files.examine(DataFile::tetseged), QString());
    }
    // A whole one stays as it is: its rows are the last run's.
    test.workstation.files.closeAll();
    makeFile(path, whole);
    EXPECT_TRUE(examineDataFiles(test.workstation));
    EXPECT_EQ(firstText(test.workstation.files[DataFile::tetseged], "select Naplo from Leval_er"), u"1"_s);
}

TEST(StartChecks, EveryLostFileIsTold) {
    TestWorkstation test;
    ASSERT_TRUE(QFile::remove(test.path(u"tetmod.mdb"_s)));
    makeFile(test.path(u"diagnos.mdb"_s),
             "this is no data file at all, but long enough to look like one " + QByteArray(600, 'x'));
    EXPECT_EQ(faultNumberOf([&] { test.workstation.files[DataFile::tetmod]; }), fault::dataFileMissing);
    EXPECT_EQ(faultNumberOf([&] { test.workstation.files[DataFile::diagnos]; }), fault::dataFileDamaged);
    test.dialogue.expect(u"Nem található a tetmod.mdb állomány!"_s, errorTitle);
    test.dialogue.expect(u"diagnos.mdb: az adatállomány sérült"_s, errorTitle);
    EXPECT_FALSE(examineDataFiles(test.workstation));
}

TEST(StartChecks, ADamagedTableIsNoticed) {
    TestWorkstation test;
    const qint64 page = firstText(test.dictionaries(), "pragma page_size").toLongLong();
    const qint64 root =
        firstText(test.dictionaries(), "select rootpage from sqlite_master where name='ORVOSOK'")
            .toLongLong();
    test.workstation.files.closeAll();
    QByteArray bytes = fileBytes(test.path(u"tetmod.mdb"_s));
    ASSERT_GT(root, 1); // page 1 holds the names of the tables, which stay readable
    bytes.replace((root - 1) * page, page, QByteArray(page, '\x55'));
    makeFile(test.path(u"tetmod.mdb"_s), bytes);
    test.dialogue.expect(u"A(z) tetmod.mdb állomány sérült!"_s, errorTitle);
    EXPECT_FALSE(examineDataFiles(test.workstation));
}

TEST(StartChecks, FilesOfOtherScreensMayBeAway) {
    TestWorkstation test;
    for (const char* name :
         {"td2.mdb", "ZEKA.mdb", "osszedata.mdb", "gyogysz2.mdb", "gyogysz.mdb", "setup.ini"})
        ASSERT_TRUE(QFile::remove(test.path(QLatin1StringView(name)))) << name;
    EXPECT_TRUE(examineDataFiles(test.workstation));
    EXPECT_FALSE(QFile::exists(test.path(u"osszedata.mdb"_s)));
}

TEST(StartChecks, DatabaseFormat) {
    const struct {
        const char* script;
        bool good;
    } cases[] = {
        {"alter table Tranzakciok drop column TAJ", false},
        {"alter table Tranzakciok rename column TAJ to taj", true}, // names know no case
        {"drop table Tranzakciok", true}, // cannot be opened: no matter of this check
    };
    for (const auto& entry : cases) {
        SCOPED_TRACE(entry.script);
        TestWorkstation test;
        test.workstation.files[DataFile::TAJKapu].executeScript(entry.script);
        if (!entry.good) {
            EXPECT_TRUE(examineDataFiles(test.workstation)); // without a box of its own
            test.dialogue.expect(
                u"Az Ön adatbázis formátuma a 2.21-es verziónak nem felel meg, ezért konvertálásra "
                "van szükség, mely kevesebb, mint 1 perc alatt lezajlik.\nA konvertálás "
                "megkezdéséhez a Szerviz tevékenységek->Konvertálás->Vandrel 2.21-re menüpontot "
                "kell elindítani!"_s,
                programTitle, Icon::warning);
        }
        EXPECT_EQ(VerzioEllenorzesek(test.workstation), entry.good);
    }
    TestWorkstation lost;
    ASSERT_TRUE(QFile::remove(lost.path(u"TAJKapu.mdb"_s)));
    EXPECT_TRUE(VerzioEllenorzesek(lost.workstation));
    EXPECT_FALSE(QFile::exists(lost.path(u"TAJKapu.mdb"_s)));
}

TEST(StartChecks, SeeThroughFlag) {
    const struct {
        const char* script;
        bool before;
        bool after;
    } cases[] = {
        {"update EGYEBPAR set Attunes=1", false, true},
        {"update EGYEBPAR set Attunes=-1", false, true}, // True as older data have it
        {"update EGYEBPAR set Attunes=0", true, false},
        {"update EGYEBPAR set Attunes=null", false, true},
        {"delete from EGYEBPAR", false, true},
        {"update EGYEBPAR set Attunes=1; insert into EGYEBPAR (Attunes) values (0)", false, true},
        {"drop table EGYEBPAR", false, false}, // a fault is silent and changes nothing
        {"drop table EGYEBPAR", true, true},
    };
    for (const auto& entry : cases) {
        SCOPED_TRACE(entry.script);
        TestWorkstation test;
        test.data().executeScript(entry.script);
        test.workstation.Attunes = entry.before;
        readAttunes(test.workstation);
        EXPECT_EQ(test.workstation.Attunes, entry.after);
    }
    TestWorkstation test;
    test.data().executeScript("insert into EGYEBPAR (Attunes) values (1)");
    clearAttunes(test.workstation);
    EXPECT_EQ(firstText(test.data(), "select group_concat(Attunes) from EGYEBPAR"), u"0,1"_s);
    test.data().executeScript("drop table EGYEBPAR");
    EXPECT_NO_THROW(clearAttunes(test.workstation));
}

TEST(StartChecks, InstitutionQuestion) {
    const QString question = u"Az intézeti adatok nincsenek kitöltve!Kívánja most kitölteni?"_s;
    TestWorkstation test;
    QStringList warnings;
    test.dialogue.expectQuestion(question, Answer::yes);
    EXPECT_EQ(checkInstitution(test.workstation, warnings), InstitutionAnswer::fillNow);
    test.dialogue.expectQuestion(question, Answer::no);
    EXPECT_EQ(checkInstitution(test.workstation, warnings), InstitutionAnswer::fillLater);
    EXPECT_EQ(warnings, QStringList({u"Az intézeti adatok nincsenek kitöltve!"_s,
                                     u"Az intézeti adatok nincsenek kitöltve! Kitöltés: Szerviz "
                                     "tevékenységek->Intézmény"_s}));
    test.data().execute("insert into intezet (Int_nev) values ('x')");
    EXPECT_EQ(checkInstitution(test.workstation, warnings), InstitutionAnswer::filled);
    EXPECT_EQ(warnings.size(), 2);
}

TEST(StartChecks, FirstStartWarnings) {
    const QString doctors = u"Orvoskódok nincsenek kitöltve! Kitöltés: Szerviz "
                            "tevékenységek->Adatbázisok karbantartása->Orvoskódok"_s;
    const QString units = u"Szakrendelő kódok nincsenek kitöltve! Kitöltés: Szerviz "
                          "tevékenységek->Adatbázisok karbantartása->Szakrendelő kódszótár"_s;
    const struct {
        const char* dictionaries;
        const char* flag;
        QStringList warnings;
    } cases[] = {
        {"", "update Beallitasok set Elso_inditas=1", {doctors, units}},
        {"insert into ORVOSOK (ORVKOD) values ('1')", "update Beallitasok set Elso_inditas=-1", {units}},
        {"insert into SZAKREND (REND_KOD) values ('1')", "", {doctors}},
        {"", "update Beallitasok set Elso_inditas=0", {}},
        {"", "update Beallitasok set Elso_inditas=null", {}},
        {"", "delete from Beallitasok", {}},
    };
    for (const auto& entry : cases) {
        SCOPED_TRACE(entry.flag);
        TestWorkstation test;
        test.dictionaries().executeScript(entry.dictionaries);
        test.data().executeScript(entry.flag);
        QStringList warnings;
        checkFirstStart(test.workstation, warnings);
        EXPECT_EQ(warnings, entry.warnings);
        warnings.clear();
        checkFirstStart(test.workstation, warnings); // the flag is cleared by the first pass
        EXPECT_EQ(warnings, QStringList());
    }
}

} // namespace vandrel::test
