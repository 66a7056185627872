// SQLite behind the program's faults and its three values (Null, one blank, empty text).
#include "platform/database.h"

#include "platform/text_functions.h"

#include <QFileInfo>

#include <sqlite3.h>

using namespace Qt::StringLiterals;

namespace vandrel {

namespace {

constexpr int lockPause = 5; // milliseconds between two tries of a locked file

// Everything runs on the one user-interface thread: without the engine's locks around each call and each
// piece of memory, reading takes a quarter less time.
constexpr int oneThread = SQLITE_OPEN_NOMUTEX;

void prepareEngine() {
    // Refused, and that does no harm, where somebody has used the engine before.
    static const int unused = sqlite3_config(SQLITE_CONFIG_MEMSTATUS, 0);
    Q_UNUSED(unused)
}

} // namespace

Query::Query(Query&& other) noexcept
    : m_database(other.m_database), m_statement(std::exchange(other.m_statement, nullptr)),
      m_sql(other.m_sql) {}

Query::~Query() {
    if (m_statement != nullptr) m_database->giveBack(m_statement, m_sql);
}

void Query::check(int result) const {
    if (result != SQLITE_OK) m_database->raise(result);
}

Query& Query::bind(int parameter, std::nullptr_t) {
    check(sqlite3_bind_null(m_statement, parameter));
    return *this;
}

Query& Query::bind(int parameter, qint64 value) {
    check(sqlite3_bind_int64(m_statement, parameter, value));
    return *this;
}

Query& Query::bind(int parameter, double value) {
    check(sqlite3_bind_double(m_statement, parameter, value));
    return *this;
}

Query& Query::bind(int parameter, const QString& value) {
    const QByteArray utf8 = value.toUtf8();
    return bind(parameter, std::string_view(utf8.constData(), static_cast<std::size_t>(utf8.size())));
}

Query& Query::bind(int parameter, std::string_view utf8) {
    // A null pointer would store Null; the empty text must stay an empty text.
    const char* data = utf8.data() != nullptr ? utf8.data() : "";
    check(sqlite3_bind_text64(m_statement, parameter, data, utf8.size(), SQLITE_TRANSIENT, SQLITE_UTF8));
    return *this;
}

Query& Query::bindBorrowed(int parameter, std::string_view utf8) {
    const char* data = utf8.data() != nullptr ? utf8.data() : "";
    check(sqlite3_bind_text64(m_statement, parameter, data, utf8.size(), SQLITE_STATIC, SQLITE_UTF8));
    return *this;
}

bool Query::next() {
    const int result = sqlite3_step(m_statement);
    if (result == SQLITE_ROW) return true;
    if (result == SQLITE_DONE) return false;
    sqlite3_reset(m_statement);
    m_database->raise(result);
}

void Query::run() {
    while (next()) {
    }
    sqlite3_reset(m_statement);
}

void Query::reset() {
    sqlite3_reset(m_statement);
}

bool Query::isNull(int column) const {
    return sqlite3_column_type(m_statement, column) == SQLITE_NULL;
}

bool Query::isText(int column) const {
    return sqlite3_column_type(m_statement, column) == SQLITE_TEXT;
}

QString Query::text(int column) const {
    const std::string_view utf8 = bytes(column);
    const QString result = QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size()));
    // The conversion drops a byte order mark at the head; what is stored must not change on its way.
    return utf8.starts_with("\xEF\xBB\xBF") ? QChar(QChar::ByteOrderMark) + result : result;
}

std::optional<QString> Query::optionalText(int column) const {
    if (isNull(column)) return std::nullopt;
    return text(column);
}

std::string_view Query::bytes(int column) const {
    const auto* data = reinterpret_cast<const char*>(sqlite3_column_text(m_statement, column));
    if (data == nullptr) return {};
    return {data, static_cast<std::size_t>(sqlite3_column_bytes(m_statement, column))};
}

std::optional<std::string_view> Query::optionalBytes(int column) const {
    // Only Null has no text. One question instead of two: reports ask it millions of times.
    const auto* data = reinterpret_cast<const char*>(sqlite3_column_text(m_statement, column));
    if (data == nullptr) return std::nullopt;
    return std::string_view(data, static_cast<std::size_t>(sqlite3_column_bytes(m_statement, column)));
}

qint64 Query::integer(int column) const {
    return sqlite3_column_int64(m_statement, column);
}

double Query::number(int column) const {
    return sqlite3_column_double(m_statement, column);
}

Database::Database(const QString& path) : m_path(path) {
    if (!QFileInfo(path).isFile())
        throw Fault(fault::dataFileMissing, u"Nem található a %1 állomány!"_s.arg(fileName()));
    prepareEngine();
    int result =
        sqlite3_open_v2(path.toUtf8().constData(), &m_handle, SQLITE_OPEN_READWRITE | oneThread, nullptr);
    // No destructor runs for what a constructor leaves by a fault: the handle is closed here.
    try {
        if (result == SQLITE_OK) {
            configure();
            // The file is first read here; a file that is no database shows itself now.
            result = sqlite3_exec(m_handle, "select count(*) from sqlite_master", nullptr, nullptr, nullptr);
        }
        if (result != SQLITE_OK) raise(result);
    } catch (...) {
        sqlite3_close_v2(m_handle);
        throw;
    }
}

Database Database::create(const QString& path) {
    Database result;
    result.m_path = path;
    if (QFileInfo::exists(path))
        throw Fault(fault::pathAccess, u"Már van ilyen állomány: %1"_s.arg(result.fileName()));
    prepareEngine();
    const int code = sqlite3_open_v2(path.toUtf8().constData(), &result.m_handle,
                                     SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE | oneThread, nullptr);
    if (code != SQLITE_OK) result.raise(code);
    result.configure();
    return result;
}

void Database::setLockWait(std::chrono::milliseconds wait) {
    m_lockWait->time = wait;
}

void Database::configure() {
    sqlite3_extended_result_codes(m_handle, 1);
    // Before the first reading: a file that a sibling tool holds for a moment is waited for at once.
    const auto wait = [](void* context, int waits) {
        const LockWait& lock = *static_cast<LockWait*>(context);
        if (lock.meanwhile) lock.meanwhile();
        if (waits * lockPause >= lock.time.count()) return 0;
        sqlite3_sleep(lockPause);
        return 1;
    };
    sqlite3_busy_handler(m_handle, wait, m_lockWait.get());
    registerTextFunctions(m_handle);
    // A closed data file is one file, and a store that was confirmed survives a power cut: "extra" syncs the
    // folder after the journal's removal too, or the journal could come back and undo the store.
    executeScript("pragma journal_mode=delete; pragma synchronous=extra; pragma foreign_keys=off;");
}

Database::Database(Database&& other) noexcept
    : m_path(std::move(other.m_path)), m_handle(std::exchange(other.m_handle, nullptr)),
      m_lockWait(std::move(other.m_lockWait)), m_cache(std::move(other.m_cache)) {
    other.m_cache.clear();
}

Database::~Database() {
    for (auto& [sql, statements] : m_cache)
        for (sqlite3_stmt* statement : statements)
            sqlite3_finalize(statement);
    sqlite3_close_v2(m_handle);
}

void Database::whenBusy(std::function<void()> action) {
    m_lockWait->meanwhile = std::move(action);
}

QString Database::fileName() const {
    return QFileInfo(m_path).fileName();
}

Query Database::take(std::string_view sql) {
    const auto [place, added] = m_cache.try_emplace(std::string(sql));
    const std::string_view key = place->first; // node-based map: the key stays where it is
    if (!place->second.empty()) {
        sqlite3_stmt* statement = place->second.back();
        place->second.pop_back();
        return Query(*this, statement, key);
    }
    sqlite3_stmt* statement = nullptr;
    const int result = sqlite3_prepare_v3(m_handle, sql.data(), static_cast<int>(sql.size()),
                                          SQLITE_PREPARE_PERSISTENT, &statement, nullptr);
    if (result != SQLITE_OK) raise(result);
    return Query(*this, statement, key);
}

void Database::giveBack(sqlite3_stmt* statement, std::string_view sql) {
    sqlite3_reset(statement);
    sqlite3_clear_bindings(statement);
    m_cache.find(std::string(sql))->second.push_back(statement);
}

void Database::executeScript(const std::string& sql) {
    const int result = sqlite3_exec(m_handle, sql.c_str(), nullptr, nullptr, nullptr);
    if (result != SQLITE_OK) raise(result);
}

qint64 Database::changes() const {
    return sqlite3_changes64(m_handle);
}

qint64 Database::lastRowId() const {
    return sqlite3_last_insert_rowid(m_handle);
}

bool Database::inTransaction() const {
    return sqlite3_get_autocommit(m_handle) == 0;
}

bool Database::hasTable(const QString& table) {
    return query("select 1 from sqlite_master where type in ('table','view') and name=?1 collate nocase",
                 table)
        .next();
}

QString Database::quickCheck() {
    Query check = query("pragma quick_check(1)");
    return check.next() ? check.text(0) : u"ok"_s;
}

QString Database::integrityCheck() {
    Query check = query("pragma integrity_check(1)");
    return check.next() ? check.text(0) : u"ok"_s;
}

void Database::raise(int result) const {
    const QString engine = m_handle != nullptr ? QString::fromUtf8(sqlite3_errmsg(m_handle)) : QString();
    // The user reads the text: none of the engine's English in it.
    const auto raiseAs = [&](int number, const QString& text) {
        throw Fault(number, fileName() + u": "_s + text);
    };
    const auto lastWord = [&engine] { return engine.section(' '_L1, -1); };
    switch (result & 0xff) {
    case SQLITE_FULL:
        raiseAs(fault::dataFileFull, u"a lemez megtelt"_s);
        break;
    case SQLITE_READONLY:
    case SQLITE_PERM:
    case SQLITE_AUTH:
        raiseAs(fault::dataFileReadOnly, u"az adatállomány nem írható"_s);
        break;
    case SQLITE_CANTOPEN:
        // The journal beside the file could not be made, or the file itself not be opened.
        raiseAs(fault::dataFileReadOnly, u"az adatállomány nem nyitható meg írásra"_s);
        break;
    case SQLITE_BUSY:
    case SQLITE_LOCKED:
        raiseAs(fault::dataFileInUse, u"az adatállományt más program használja"_s);
        break;
    case SQLITE_CORRUPT:
    case SQLITE_NOTADB:
        raiseAs(fault::dataFileDamaged, u"az adatállomány sérült"_s);
        break;
    case SQLITE_CONSTRAINT:
    case SQLITE_MISMATCH:
    case SQLITE_TOOBIG:
        raiseAs(fault::dataConversion, u"az adat nem tárolható"_s);
        break;
    default:
        break;
    }
    if (engine.contains("no such table"_L1)) raiseAs(fault::tableMissing, u"hiányzó tábla: "_s + lastWord());
    if (engine.contains("no such column"_L1) || engine.contains("has no column"_L1))
        raiseAs(fault::columnMissing, u"hiányzó oszlop: "_s + lastWord());
    raiseAs(fault::storage, u"adatbázishiba (%1)"_s.arg(result));
    Q_UNREACHABLE();
}

Transaction::Transaction(Database& database) : m_database(database) {
    m_database.execute("begin immediate");
}

Transaction::~Transaction() {
    if (!m_open) return;
    try {
        // The engine itself rolls back after some faults (a full disk).
        if (m_database.inTransaction()) m_database.execute("rollback");
    } catch (const Fault&) {
        // The fault that brought us here is already on its way to the user.
    }
}

void Transaction::commit() {
    m_database.execute("commit");
    m_open = false;
}

ReadTransaction::ReadTransaction(Database& database)
    : m_database(database), m_own(!database.inTransaction()) {
    if (m_own) m_database.execute("begin");
}

ReadTransaction::~ReadTransaction() {
    try {
        if (m_own && m_database.inTransaction()) m_database.execute("commit");
    } catch (const Fault&) {
        // Nothing was written: there is nothing to lose.
    }
}

} // namespace vandrel
