// What vandrel-data leaves on the disk, read with the plain sqlite3 API as any other tool would read it.
#include "sample/program_folder.h"

#include "support/test_workstation.h"

#include <QDir>
#include <QFileInfo>
#include <QProcess>
#include <QTemporaryDir>

#include <sqlite3.h>

#include <map>

using namespace Qt::StringLiterals;

namespace vandrel {
namespace {

using Rows = std::vector<std::vector<std::string>>;

// A file in the hands of a tool that knows nothing of this program.
class PlainFile {
  public:
    explicit PlainFile(const QString& path, int flags = SQLITE_OPEN_READONLY) {
        EXPECT_EQ(sqlite3_open_v2(path.toUtf8().constData(), &m_handle, flags, nullptr), SQLITE_OK);
    }
    ~PlainFile() { sqlite3_close(m_handle); }
    PlainFile(const PlainFile&) = delete;
    PlainFile& operator=(const PlainFile&) = delete;

    Rows rows(const std::string& sql) const {
        Rows result;
        sqlite3_stmt* statement = nullptr;
        EXPECT_EQ(sqlite3_prepare_v2(m_handle, sql.c_str(), -1, &statement, nullptr), SQLITE_OK)
            << sql << ": " << sqlite3_errmsg(m_handle);
        while (sqlite3_step(statement) == SQLITE_ROW) {
            result.emplace_back();
            for (int i = 0; i < sqlite3_column_count(statement); ++i) {
                const unsigned char* text = sqlite3_column_text(statement, i);
                result.back().emplace_back(text ? reinterpret_cast<const char*>(text) : "(null)");
            }
        }
        EXPECT_EQ(sqlite3_finalize(statement), SQLITE_OK) << sql;
        return result;
    }
    std::string value(const std::string& sql) const {
        const Rows all = rows(sql);
        return all.empty() ? "(none)" : all.front().front();
    }

  private:
    sqlite3* m_handle = nullptr;
};

std::map<QString, QByteArray> contentOf(const QDir& folder) {
    std::map<QString, QByteArray> content;
    for (const QFileInfo& file : folder.entryInfoList(QDir::Files | QDir::Dirs | QDir::NoDotAndDotDot))
        content[file.fileName()] = file.isDir() ? QByteArray("a folder") : test::fileBytes(file.filePath());
    return content;
}

std::string name(std::string_view text) {
    return std::string(text);
}

class SampleFolder : public testing::Test {
  protected:
    static void SetUpTestSuite() {
        s_directory = new QTemporaryDir;
        s_outcome = completeProgramFolder(s_directory->filePath(u"mappa"_s), true);
    }
    static void TearDownTestSuite() { delete s_directory; }
    static QString path(std::string_view file) {
        return s_directory->filePath(u"mappa/"_s + QString::fromStdString(name(file)));
    }

    static QTemporaryDir* s_directory;
    static FolderOutcome s_outcome;
};
QTemporaryDir* SampleFolder::s_directory = nullptr;
FolderOutcome SampleFolder::s_outcome;

TEST_F(SampleFolder, EveryFileHasTheTablesAndColumnsOfTheCatalogueInTheirOrder) {
    QStringList expectedFiles;
    for (const catalogue::File& file : catalogue::files()) {
        expectedFiles << QString::fromStdString(name(file.name));
        const PlainFile plain(path(file.name));
        EXPECT_EQ(plain.value("pragma integrity_check"), "ok") << file.name;
        EXPECT_EQ(plain.value("pragma journal_mode"), "delete") << file.name; // one file when closed
        Rows expected, found;
        for (const catalogue::Table& table : file.tables)
            for (const catalogue::Column& column : table.columns)
                expected.push_back({name(table.name), name(column.name)});
        for (const auto& table :
             plain.rows("select name from sqlite_master where type='table' order by rowid"))
            for (const auto& column : plain.rows("select name from pragma_table_info('" + table[0] + "')"))
                found.push_back({table[0], column[0]});
        EXPECT_EQ(found, expected) << file.name;
    }
    expectedFiles << u"setup.ini"_s;
    EXPECT_EQ(s_outcome.made, expectedFiles);
    EXPECT_TRUE(s_outcome.kept.isEmpty());
}

// A dump is the schema run anew and the rows put back: neither may need a function or collation that only
// this program has.
TEST_F(SampleFolder, EveryFileCanBeDumpedAndRestoredElsewhere) {
    for (const catalogue::File& file : catalogue::files()) {
        const PlainFile source(path(file.name));
        const PlainFile copy(u":memory:"_s, SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE);
        copy.rows("attach '" + path(file.name).toStdString() + "' as original");
        for (const auto& entry : source.rows("select sql from sqlite_master where sql is not null"))
            copy.rows(entry[0]);
        for (const catalogue::Table& table : file.tables) {
            const std::string quoted = '"' + name(table.name) + '"';
            copy.rows("insert into main." + quoted + " select * from original." + quoted);
            EXPECT_EQ(copy.rows("select * from main." + quoted), source.rows("select * from " + quoted));
        }
        EXPECT_EQ(copy.value("pragma integrity_check"), "ok") << file.name;
    }
    const PlainFile drugs(path("gyogysz2.mdb"));
    EXPECT_EQ(drugs.rows("select name from sqlite_master where type='view' order by rowid"),
              (Rows{{"NORM_GYOGYSZ"}, {"EUEM_GYOGYSZ"}, {"EUKIEM_GYOGYSZ"}}));
    Rows columns = drugs.rows("select name from pragma_table_info('GYOGYSZ')");
    columns.push_back({"NTK"}); // the fee of the title, after the table's own columns
    EXPECT_EQ(drugs.rows("select name from pragma_table_info('EUKIEM_GYOGYSZ')"), columns);
}

TEST_F(SampleFolder, CodesFitTheReportColumnsAndAreKnownOnce) {
    const struct {
        const char* file;
        const char* table;
        const char* code;
        int width;
        int atLeast; // rows
    } dictionaries[] = {
        {"tetmod.mdb", "SZAKREND", "REND_KOD", 9, 8}, {"tetmod.mdb", "ORVOSOK", "ORVKOD", 5, 10},
        {"tetmod.mdb", "BEKULDO", "KOD", 9, 15},      {"tetmod.mdb", "IRSZ", "IRSZ", 4, 120},
        {"tetmod.mdb", "ALLAMPOL", "ROV", 3, 240},    {"beav.mdb", "BEAV", "BEAV_KOD", 5, 100},
        {"diagnos.mdb", "DIAGNOS", "D_KOD", 5, 120},
    };
    for (const auto& dictionary : dictionaries) {
        const PlainFile plain(path(dictionary.file));
        const std::string code = dictionary.code, from = std::string(" from ") + dictionary.table;
        EXPECT_EQ(plain.rows("select distinct length(" + code + ")" + from),
                  (Rows{{std::to_string(dictionary.width)}}))
            << dictionary.table;
        EXPECT_EQ(plain.rows("select " + code + from + " group by " + code + " having count(*) > 1"), Rows{})
            << dictionary.table;
        EXPECT_GE(std::stoi(plain.value("select count(*)" + from)), dictionary.atLeast) << dictionary.table;
    }
}

TEST_F(SampleFolder, DictionariesAgreeWithEachOther) {
    const PlainFile dictionaries(path("tetmod.mdb"));
    EXPECT_EQ(dictionaries.rows("select ORSZAG, EUKOD from ALLAMPOL where ROV in ('HUN','USA') order by ROV"),
              (Rows{{"Magyarország", "HU"}, {"Egyesült Államok", " "}}));
    EXPECT_EQ(dictionaries.value("select count(*) from ALLAMPOL where trim(EUKOD) <> ''"), "27");

    // Each key is found by its key code after "Fn - ", and puts a known procedure into the field.
    dictionaries.rows("attach '" + path("beav.mdb").toStdString() + "' as beav");
    Rows keys;
    for (int key = 2; key <= 9; ++key)
        keys.push_back({'F' + std::to_string(key) + " - " + std::to_string(111 + key)});
    EXPECT_EQ(dictionaries.rows("select FUNKCIO from FUNKCIO join beav.BEAV on BEAV_KOD = BEAVKOD "
                                "where substr(FUNKCIO, 6) between '113' and '120' order by FUNKCIO"),
              keys);
    // Points and multipliers are numbers above zero, whatever their spelling in the tables was.
    EXPECT_EQ(dictionaries.value("select count(*) from beav.BEAV where typeof(NEMET_PONT) <> 'real' or "
                                 "NEMET_PONT <= 0"),
              "0");
    EXPECT_EQ(
        dictionaries.value("select count(*) from SZAKREND where typeof(SZORZO) <> 'real' or SZORZO <= 0"),
        "0");

    // Plainly marked as samples, ready for a first start, and the institution left to be asked for.
    EXPECT_EQ(dictionaries.value("select count(*) from beav.BEAV where BEAV_NEV not like '%(minta)'"), "0");
    EXPECT_EQ(dictionaries.value("select Kozlonyszam from beav.KozlonySzam"), "MINTA");
    const PlainFile data(path("tetdata.mdb"));
    EXPECT_EQ(
        data.rows("select Gepazon, Attunes, (select count(*) from intezet) from Gepazonosito, EGYEBPAR"),
        (Rows{{"A01", "0", "0"}}));
}

// The conversion of 1.x data copies these tables into td2.mdb: a first row of the file's own would come
// twice, and the program reads the first one. Tables that are not copied have theirs.
TEST_F(SampleFolder, TheConversionsTargetIsEmptyWhereRowsAreCopied) {
    const PlainFile target(path("td2.mdb"));
    for (const char* table : {"AZONOSIT", "Gepazonosito", "Utolsok", "EGYEBPAR", "intezet"})
        EXPECT_EQ(target.value(std::string("select count(*) from ") + table), "0") << table;
    EXPECT_EQ(target.rows("select (select count(*) from Beallitasok), (select count(*) from Verziok)"),
              (Rows{{"1", "1"}}));
}

TEST(ProgramFolder, WhatIsThereIsNeverTouched) {
    QTemporaryDir directory;
    const QDir folder(directory.path());
    // One dictionary is already kept by its owner (not even a data file any more), one went missing later.
    QFile own(folder.filePath(u"beav.mdb"_s));
    ASSERT_TRUE(own.open(QIODevice::WriteOnly));
    own.write("a clinic's own file");
    own.close();
    EXPECT_EQ(completeProgramFolder(folder.path(), true).kept, QStringList{u"beav.mdb"_s});
    EXPECT_EQ(test::fileBytes(folder.filePath(u"beav.mdb"_s)), "a clinic's own file");

    const auto before = contentOf(folder);
    EXPECT_EQ(before.size(), 12U); // no workshop, no journal is left
    const FolderOutcome again = completeProgramFolder(folder.path(), true);
    EXPECT_TRUE(again.made.isEmpty());
    EXPECT_EQ(again.kept.size(), 12);
    EXPECT_EQ(contentOf(folder), before);

    ASSERT_TRUE(QFile::remove(folder.filePath(u"diagnos.mdb"_s)));
    EXPECT_EQ(completeProgramFolder(folder.path(), false).made, QStringList{u"diagnos.mdb"_s});
    EXPECT_EQ(PlainFile(folder.filePath(u"diagnos.mdb"_s)).value("select count(*) from DIAGNOS"), "0");
}

TEST(VandrelData, RefusesWhatItDoesNotKnowAndSaysSo) {
    QTemporaryDir directory;
    const QString file = directory.filePath(u"allomany"_s);
    QFile(file).open(QIODevice::WriteOnly);
    const QString fresh = directory.filePath(u"új mappa"_s);
    const struct {
        QStringList arguments;
        int exitCode;
        const char* says;
    } cases[] = {
        {{}, 2, "Hiányzó vagy ismeretlen parancs."},
        {{"destroy", fresh}, 2, "Hiányzó vagy ismeretlen parancs."},
        {{"create"}, 2, "Pontosan egy mappát kell megadni."},
        {{"create", fresh, "masik"}, 2, "Pontosan egy mappát kell megadni."},
        {{"create", fresh, "--smaple"}, 2, "Ismeretlen kapcsoló: --smaple"},
        {{"create", file}, 1, "A mappa nem hozható létre"},
        {{"create", "--sample", fresh}, 0, "A mappa kész, az új szótárak mintaadatokat tartalmaznak"},
        {{"create", fresh}, 0, "A mappa teljes, nem volt mit létrehozni"},
    };
    for (const auto& one : cases) {
        QProcess process;
        process.setProcessChannelMode(QProcess::MergedChannels);
        process.start(QStringLiteral(VANDREL_DATA_PROGRAM), one.arguments);
        ASSERT_TRUE(process.waitForFinished());
        const std::string said = process.readAll().toStdString();
        EXPECT_EQ(process.exitCode(), one.exitCode) << said;
        EXPECT_NE(said.find(one.says), std::string::npos) << said;
        if (one.exitCode == 2) {
            EXPECT_FALSE(QFileInfo::exists(fresh)) << said;
        }
    }
}

} // namespace
} // namespace vandrel
