#include "foundation/data_files.h"

#include "foundation/file_checks.h"
#include "platform/ini_file.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStringList>

#include <algorithm>
#include <cerrno>

using namespace Qt::StringLiterals;

namespace vandrel {

namespace {

constexpr qint64 readThroughLimit =
    20'000'000; // bytes; larger files are checked where a report relies on them

QString latin(std::string_view text) {
    return QString::fromLatin1(text.data(), static_cast<qsizetype>(text.size()));
}

std::string sqlName(std::string_view name) {
    return '"' + std::string(name) + '"';
}

std::string_view typeName(catalogue::Type type) {
    switch (type) {
    case catalogue::Type::text:
        return "TEXT";
    case catalogue::Type::code:
        return "TEXT COLLATE NOCASE";
    case catalogue::Type::integer:
    case catalogue::Type::whole:
    case catalogue::Type::wholeNumber:
        return "INTEGER";
    case catalogue::Type::number:
        return "REAL";
    }
    return "TEXT";
}

std::string createTable(const catalogue::Table& table, bool withFirstRow) {
    std::string sql = "create table " + sqlName(table.name) + " (";
    for (std::size_t i = 0; i < table.columns.size(); ++i) {
        if (i != 0) sql += ", ";
        sql += sqlName(table.columns[i].name) + ' ' + std::string(typeName(table.columns[i].type));
    }
    sql += ");\n";
    for (const std::string_view column : table.searched)
        sql += "create index " + sqlName(std::string(table.name) + '_' + std::string(column)) + " on " +
               sqlName(table.name) + " (" + sqlName(column) + ");\n";
    if (!table.typedAhead.empty())
        for (int length = 1; length <= catalogue::typedAheadLength; ++length)
            sql += "create index " +
                   sqlName(std::string(table.name) + '_' + std::string(table.typedAhead) +
                           std::to_string(length)) +
                   " on " + sqlName(table.name) + " (substr(" + sqlName(table.typedAhead) + ",1," +
                   std::to_string(length) + ") collate nocase);\n";
    if (withFirstRow && !table.firstRow.empty()) sql += std::string(table.firstRow) + ";\n";
    return sql;
}

// The first table or column of the catalogue that the file has not, as a message; empty when all are there.
QString missingParts(Database& database, DataFile file) {
    const QString name = catalogue::fileName(file);
    for (const catalogue::Table& table : catalogue::file(file).tables) {
        const QString tableName = latin(table.name);
        if (!database.hasTable(tableName))
            return u"A(z) %1 állományban nem található a(z) %2 tábla!"_s.arg(name, tableName);
        Query columns = database.query("select name from pragma_table_info(?1)", tableName);
        QStringList present;
        while (columns.next())
            present << columns.text(0);
        for (const catalogue::Column& column : table.columns)
            if (!present.contains(latin(column.name), Qt::CaseInsensitive))
                return u"A(z) %1 állomány %2 táblájában nem található a(z) %3 mező!"_s.arg(
                    name, tableName, latin(column.name));
    }
    return {};
}

struct SetupKey {
    const char* section;
    const char* key;
    const char* value = "";
};

// A line that was added takes its next character from BEAV_TIP: without a value there the clerk would have to
// type it on every line.
constexpr SetupKey setupKeys[] = {
    {"VENY", "TOP"},
    {"VENY", "LEFT"},
    {"ADATLAP_DEF", "BEAV_TIP", "A"},
    {"ADATLAP_DEF", "FT_EL", "0"},
    {"ELSZNYILNYOM", "MERET", "A4"},
    {"FRISSITES", "URL"},
    {"FRISSITES", "PROXY_ENG", "0"},
    {"FRISSITES", "PROXY_NEV"},
    {"FRISSITES", "PROXY_PORT"},
    {"ZEKA", "SZINK", "0"},
    {"ZEKA", "ELERES"},
    {"ZEKA", "DEF_SZOLG"},
    {"KJELO", "Login"},
    {"KJELO", "Password"},
};

} // namespace

DataFiles::DataFiles(const QString& folder)
    : m_folder(folder), m_checks(std::make_unique<FileChecks>(*this)) {}

DataFiles::~DataFiles() = default;

QString DataFiles::path(DataFile file) const {
    return QDir(m_folder).filePath(catalogue::fileName(file));
}

Database& DataFiles::operator[](DataFile file) {
    std::unique_ptr<Database>& place = m_open[static_cast<std::size_t>(file)];
    if (!place) {
        place = std::make_unique<Database>(path(file));
        place->whenBusy([this] { m_checks->giveWay(); });
        // Scratch rows are made anew by every run: they need no wait for the disk.
        if (file == DataFile::tetseged) place->executeScript("pragma synchronous=off;");
    }
    return *place;
}

void DataFiles::close(DataFile file) {
    m_checks->forget(file);
    m_open[static_cast<std::size_t>(file)].reset();
}

void DataFiles::closeAll() {
    for (std::size_t file = 0; file < m_open.size(); ++file)
        close(static_cast<DataFile>(file));
}

QString DataFiles::examine(DataFile file) {
    const QString name = catalogue::fileName(file);
    try {
        Database& database = (*this)[file];
        const QString missing = missingParts(database, file);
        if (!missing.isEmpty()) return missing;
        if (QFileInfo(database.path()).size() <= readThroughLimit && database.quickCheck() != "ok"_L1)
            return u"A(z) %1 állomány sérült!"_s.arg(name);
    } catch (const Fault& fault) {
        return fault.text();
    }
    return {};
}

void DataFiles::renewScratch() {
    constexpr DataFile file = DataFile::tetseged;
    try {
        Database& scratch = (*this)[file];
        if (missingParts(scratch, file).isEmpty() && scratch.quickCheck() == "ok"_L1) return;
    } catch (const Fault& fault) {
        if (fault.number() != fault::dataFileMissing && fault.number() != fault::dataFileDamaged) throw;
    }
    close(file);
    // Its rows are of no use to anybody, so nothing is lost; a left journal would undo the new file.
    for (const QString& old : {path(file), path(file) + u"-journal"_s})
        QFile::remove(old);
    createDataFile(path(file), file);
}

void createDataFile(const QString& path, DataFile file) {
    const catalogue::File& entry = catalogue::file(file);
    // Made under another name first: a file under its own name is always whole.
    const QString unfinished = path + u".uj"_s;
    QFile::remove(unfinished);
    if (QFileInfo::exists(path)) throw Fault(fault::pathAccess, u"Már van ilyen állomány: %1"_s.arg(path));
    {
        Database database = Database::create(unfinished);
        Transaction transaction(database);
        for (const catalogue::Table& table : entry.tables)
            database.executeScript(createTable(table, std::ranges::find(entry.filledByCopy, table.name) ==
                                                          entry.filledByCopy.end()));
        for (const catalogue::View& view : entry.views)
            database.executeScript("create view " + sqlName(view.name) + " as " + std::string(view.select) +
                                   ";");
        transaction.commit();
    }
    if (!QFile::rename(unfinished, path)) {
        QFile::remove(unfinished);
        throw fileFault(EACCES, path);
    }
}

QStringList createProgramFolder(const QString& folder) {
    if (!QDir().mkpath(folder)) throw fileFault(errno, folder);
    QStringList made;
    for (const catalogue::File& entry : catalogue::files()) {
        const QString path = QDir(folder).filePath(latin(entry.name));
        if (QFileInfo::exists(path)) continue;
        createDataFile(path, entry.file);
        made << latin(entry.name);
    }
    const QString setup = QDir(folder).filePath(u"setup.ini"_s);
    if (!QFileInfo::exists(setup)) {
        const IniFile ini(setup);
        for (const auto& [section, key, value] : setupKeys)
            ini.setValue(QLatin1StringView(section), QLatin1StringView(key), QLatin1StringView(value));
        made << u"setup.ini"_s;
    }
    return made;
}

} // namespace vandrel
