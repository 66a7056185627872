// The machine's side: data files keep their three values, faults carry their numbers, text files their bytes.
#include "support/test_workstation.h"

#include "platform/code_page.h"
#include "platform/format.h"
#include "platform/single_instance.h"
#include "platform/text_compare.h"

#include <QCoreApplication>
#include <QFile>
#include <QTemporaryDir>

#include <chrono>
#include <thread>

using namespace Qt::StringLiterals;

namespace vandrel::test {

TEST(Database, KeepsNullBlankAndEmptyApart) {
    TestWorkstation station;
    Database& data = station.data();
    const QString odd = u"O'Hara %_ <b>őŰ"_s;
    data.execute("insert into BETEG (NOTE) values (?1)", nullptr);
    for (const QString& note : {u" "_s, QString(), odd})
        data.execute("insert into BETEG (NOTE) values (?1)", note);
    Query rows = data.query("select NOTE from BETEG order by rowid");
    std::vector<std::optional<QString>> notes;
    while (rows.next())
        notes.push_back(rows.optionalText(0));
    EXPECT_EQ(notes, (std::vector<std::optional<QString>>{std::nullopt, u" "_s, QString(""_L1), odd}));
}

TEST(Database, WaitsForAFileThatASiblingHoldsForAMoment) {
    TestWorkstation station;
    Database sibling(station.path(u"TAJKapu.mdb"_s));
    sibling.executeScript("begin exclusive");
    std::jthread release([&] {
        std::this_thread::sleep_for(std::chrono::milliseconds(100));
        sibling.executeScript("commit");
    });
    EXPECT_EQ(faultNumberOf([&] { station.workstation.files[DataFile::TAJKapu]; }), 0);
}

TEST(Database, TransactionThatIsNotCommittedLeavesNothing) {
    TestWorkstation station;
    {
        Transaction transaction(station.data());
        station.data().execute("insert into BETEG (AZONOSITO) values ('1')");
    }
    EXPECT_EQ(firstText(station.data(), "select count(*) from BETEG"), u"0"_s);
    EXPECT_EQ(faultNumberOf([&] { station.data().execute("insert into NINCS values (1)"); }),
              fault::tableMissing);
    EXPECT_EQ(faultNumberOf([&] { station.data().execute("update BETEG set NINCS=1"); }),
              fault::columnMissing);
}

TEST(Database, AStatementUsedTwiceAtOnceIsTwoStatements) {
    TestWorkstation station;
    Database& data = station.data();
    for (int i = 0; i < 3; ++i)
        data.execute("insert into EUSZOLG (Azonosito, MENNY) values ('x', ?1)", i);
    const char* sql = "select MENNY from EUSZOLG order by rowid";
    int pairs = 0;
    Query outer = data.query(sql);
    while (outer.next()) {
        Query inner = data.query(sql);
        while (inner.next())
            ++pairs;
    }
    EXPECT_EQ(pairs, 9);
}

TEST(CodePage, WritesTheWorkstationsBytes) {
    TestWorkstation station;
    const QString path = station.path(u"próba.txt"_s);
    CodePageFile file;
    EXPECT_EQ(faultNumberOf([&] { file.writeLine(u"még nincs nyitva"); }), fault::badFile);
    file.open(path);
    file.writeLine(u"áéíóöőúüű ÁŐŰ felelôs 12\u00a0345 \u20ac \u6f22 \U0001F600");
    file.close();
    EXPECT_EQ(fileBytes(path),
              QByteArray("\xe1\xe9\xed\xf3\xf6\xf5\xfa\xfc\xfb \xc1\xd5\xdb felel\xf4s 12\xa0"
                         "345 \x80 ? ?\r\n"));
    EXPECT_EQ(code_page::toUnicode("\xf5\xfb\xd5\xdb"), u"őűŐŰ"_s);
    std::string bytes;
    EXPECT_TRUE(code_page::appendUtf8(bytes, "őABC"));
    EXPECT_FALSE(code_page::appendUtf8(bytes, "漢"));
    EXPECT_EQ(bytes, "\xf5"
                     "ABC?");
    EXPECT_EQ(faultNumberOf([&] { file.open(station.path(u"nincs/ilyen.txt"_s)); }), fault::pathNotFound);
    EXPECT_EQ(faultNumberOf([&] { file.open(station.directory.path()); }), fault::pathAccess);
    CodePageFile full;
    EXPECT_EQ(faultNumberOf([&] {
                  full.open(u"/dev/full"_s);
                  full.writeLine(u"x");
                  full.close();
              }),
              fault::diskFull);
}

TEST(IniFile, ReadsAndWritesAsThePrivateProfileDoes) {
    TestWorkstation station;
    const IniFile& ini = station.workstation.setup;
    EXPECT_EQ(ini.value(u"KJELO"_s, u"Login"_s), QString());
    ini.setValue(u"kjelo"_s, u"LOGIN"_s, u" ő=x "_s);
    EXPECT_EQ(ini.value(u"KJELO"_s, u"Login"_s), u"ő=x"_s);
    ini.setValue(u"ADATLAP_DEF"_s, u"BEAV_TIP"_s, u"\"V\""_s);
    EXPECT_EQ(ini.value(u"adatlap_def"_s, u"beav_tip"_s), u"V"_s);
    ini.setValue(u"ZEKA"_s, u"ELERES"_s, QString(60, 'e'_L1));
    EXPECT_EQ(ini.value(u"ZEKA"_s, u"ELERES"_s).size(), 39);
    ini.setValue(u"KJELO"_s, u"Password"_s, u"a\r\n[UJ]\r\nTOP=9"_s);
    EXPECT_EQ(ini.value(u"UJ"_s, u"TOP"_s), QString());
    ini.setSection(u"VENY"_s, {{u"LEFT"_s, u"3"_s}});
    EXPECT_EQ(ini.value(u"VENY"_s, u"LEFT"_s), u"3"_s);
    EXPECT_TRUE(fileBytes(ini.path()).contains("LOGIN=\x20\xf5=x") ||
                fileBytes(ini.path()).contains("\xf5=x"));
}

TEST(TextCompare, DisregardsCaseButNotAccents) {
    EXPECT_TRUE(startsWithText(u"Őszi Árpád", u"ő"));
    EXPECT_FALSE(startsWithText(u"Őszi", u"o"));
    EXPECT_TRUE(TextPattern(u"*kov*").matches(u"Dr. KOVÁCS"));
    EXPECT_TRUE(TextPattern(u"*GYULLAD?S*").matches(u"Középfülgyulladás"));
    EXPECT_TRUE(TextPattern(u"H#*").matches(u"h60"));
    EXPECT_FALSE(TextPattern(u"H#*").matches(u"hx0"));
    EXPECT_TRUE(TextPattern(u"*100%_'*").matches(u"ez 100%_' az"));
    EXPECT_FALSE(TextPattern(u"*a*b*").matches(u"bca"));
}

TEST(Format, WritesDatesAndAmountsWhateverTheLocale) {
    EXPECT_EQ(format::shortDate(QDate(2008, 3, 9)), u"2008.03.09."_s);
    EXPECT_EQ(format::longDate(QDate(2008, 4, 3)), u"2008. április 3."_s);
    EXPECT_EQ(format::thousands(0), u"0"_s);
    EXPECT_EQ(format::thousands(12345), u"12\u00a0345"_s);
    EXPECT_EQ(format::thousands(1234567.5), u"1\u00a0234\u00a0568"_s);
    EXPECT_EQ(format::thousands(-2.5), u"-3"_s);
    // A sum of money that the binary fraction misses by a hair.
    EXPECT_EQ(format::thousands(750 * 1.15), u"863"_s);
    EXPECT_EQ(format::thousands(862.4999), u"862"_s);
    EXPECT_EQ(format::percent(12.5), u"12,50 %"_s);
    EXPECT_EQ(format::percent(0.333), u"0,33 %"_s);
    EXPECT_TRUE(format::parseDate(u"2008.02.29."_s));
    EXPECT_FALSE(format::parseDate(u"2007.02.29."_s));
    EXPECT_FALSE(format::parseDate(format::emptyDate));
    EXPECT_FALSE(format::parseDate(u"2008. 2.29."_s));
    EXPECT_EQ(format::number(1.5), u"1,5"_s);
    EXPECT_EQ(format::parseNumber(u"1,5"_s), 1.5);
    EXPECT_FALSE(format::parseNumber(u"1,5,"_s));
}

TEST(SingleInstance, TheSecondOneLearnsOfTheFirst) {
    const QByteArray name = "vandrel-test-" + QByteArray::number(QCoreApplication::applicationPid());
    auto first = std::make_unique<SingleInstance>(name);
    EXPECT_FALSE(first->otherRuns());
    EXPECT_TRUE(SingleInstance(name).otherRuns());
    first.reset();
    EXPECT_FALSE(SingleInstance(name).otherRuns());
}

TEST(SingleInstance, HoldsForTheDataFolderToo) {
    const QTemporaryDir folder, otherFolder;
    const QByteArray name = "vandrel-test-" + QByteArray::number(QCoreApplication::applicationPid());
    {
        // The names differ as on two machines.
        const SingleInstance first(name + "-1", folder.path());
        EXPECT_FALSE(first.otherRuns());
        EXPECT_TRUE(SingleInstance(name + "-2", folder.path()).otherRuns());
        EXPECT_FALSE(SingleInstance(name + "-3", otherFolder.path()).otherRuns());
        EXPECT_TRUE(SingleInstance(name + "-4", folder.path()).otherRuns()); // the refused one freed nothing
    }
    EXPECT_FALSE(SingleInstance(name + "-5", folder.path()).otherRuns()); // a file left behind is no lock
    EXPECT_FALSE(SingleInstance(name + "-6", folder.filePath(u"nincs"_s)).otherRuns());
}

} // namespace vandrel::test
