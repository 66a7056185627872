// A thin owner of one SQLite data file: open, prepared statements cached by their text, transactions.
// Null, one blank and the empty text are three values; nothing here turns one into another.
#pragma once

#include "platform/fault.h"

#include <QString>

#include <chrono>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

struct sqlite3;
struct sqlite3_stmt;

namespace vandrel {

class Database;

// One use of a prepared statement. Going out of scope resets the statement and gives it back to the cache, so
// no read lock outlives the question that took it. Columns and rows count from 0, parameters from 1.
class Query {
  public:
    Query(Query&& other) noexcept;
    Query& operator=(Query&&) = delete;
    ~Query();

    Query& bind(int parameter, std::nullptr_t);
    Query& bind(int parameter, int value) { return bind(parameter, static_cast<qint64>(value)); }
    Query& bind(int parameter, qint64 value);
    Query& bind(int parameter, double value);
    Query& bind(int parameter,
                const QString& value); // a null QString is stored as the empty text, not as Null
    Query& bind(int parameter, const char* value) { return bind(parameter, std::string_view(value)); }
    Query& bind(int parameter, std::string_view utf8); // copied
    // Not copied: the bytes must stay where they are until the statement has run.
    Query& bindBorrowed(int parameter, std::string_view utf8);
    template<class T>
    Query& bind(int parameter, const std::optional<T>& value) {
        return value ? bind(parameter, *value) : bind(parameter, nullptr);
    }

    // Moves to the next row; false after the last one. Faults of the engine are raised as Fault.
    bool next();
    // Runs a statement that gives no rows, and makes it ready to be bound and run again.
    void run();
    // Makes the statement ready to run again with the same bindings.
    void reset();

    bool isNull(int column) const;
    // True for a value kept as text, also in a number column. Ask before the value is read as another type.
    bool isText(int column) const;
    QString text(int column) const;                        // Null gives an empty text
    std::optional<QString> optionalText(int column) const; // Null gives nullopt
    std::string_view bytes(int column) const; // UTF-8, valid until the next step; Null gives an empty view
    std::optional<std::string_view> optionalBytes(int column) const; // the same, Null gives nullopt
    qint64 integer(int column) const;                                // Null gives 0
    double number(int column) const;                                 // Null gives 0

  private:
    friend class Database;
    Query(Database& database, sqlite3_stmt* statement, std::string_view sql)
        : m_database(&database), m_statement(statement), m_sql(sql) {}

    void check(int result) const;

    Database* m_database;
    sqlite3_stmt* m_statement;
    std::string_view m_sql; // the key's text in the cache
};

class Database {
  public:
    // Opens an existing file. A missing file is fault dataFileMissing ("Nem található a NAME állomány!"): a
    // lost file is never replaced by a new empty one. A file that is no database is fault dataFileDamaged.
    explicit Database(const QString& path);
    // Makes a new file; fault pathAccess where one is there already.
    static Database create(const QString& path);

    Database(Database&&) noexcept;
    Database& operator=(Database&&) = delete;
    ~Database();

    const QString& path() const { return m_path; }
    QString fileName() const;

    // A prepared statement with the values bound in order. Statements are cached by text.
    template<class... Values>
    Query query(std::string_view sql, const Values&... values) {
        Query result = take(sql);
        int parameter = 0;
        (result.bind(++parameter, values), ...);
        return result;
    }
    // Runs one statement to its end; gives the number of rows it changed.
    template<class... Values>
    qint64 execute(std::string_view sql, const Values&... values) {
        query(sql, values...).run();
        return changes();
    }
    // Runs several statements without values (a schema, a pragma).
    void executeScript(const std::string& sql);

    // Called, several times, while a statement waits for a file that another connection holds.
    void whenBusy(std::function<void()> action);

    qint64 changes() const;
    qint64 lastRowId() const;
    bool inTransaction() const;
    // How long a statement waits for another program's lock before it is fault dataFileInUse; the window
    // stands still meanwhile.
    void setLockWait(std::chrono::milliseconds wait);
    // A sibling tool may hold a file for a moment.
    static constexpr std::chrono::milliseconds usualLockWait{1500};

    bool hasTable(const QString& table);
    // "ok", or what the engine found wrong with the file.
    QString quickCheck();
    // The same, and indexes are compared with their tables, which takes about three times as long.
    QString integrityCheck();

    // The engine's handle, for what stands outside this class (benchmarks, backups).
    sqlite3* handle() const { return m_handle; }

  private:
    friend class Query;
    Database() = default;
    Query take(std::string_view sql);
    void giveBack(sqlite3_stmt* statement, std::string_view sql);
    void configure();
    [[noreturn]] void raise(int result) const;

    QString m_path;
    sqlite3* m_handle = nullptr;
    struct LockWait {
        std::chrono::milliseconds time = usualLockWait;
        std::function<void()> meanwhile = {};
    };
    std::unique_ptr<LockWait> m_lockWait = std::make_unique<LockWait>(); // the engine keeps its address
    // One idle statement a text is kept; a second use at the same time gets one of its own.
    std::unordered_map<std::string, std::vector<sqlite3_stmt*>> m_cache;
};

// A write transaction: taken at once, rolled back unless committed.
class Transaction {
  public:
    explicit Transaction(Database& database);
    ~Transaction();
    Transaction(const Transaction&) = delete;
    Transaction& operator=(const Transaction&) = delete;

    // A fault while committing leaves nothing written.
    void commit();

  private:
    Database& m_database;
    bool m_open = true;
};

// One lock for many questions: without it each question takes the file's lock, looks whether the file was
// changed, and gives the lock back, which costs more than a short question itself. Writers wait meanwhile.
class ReadTransaction {
  public:
    explicit ReadTransaction(Database& database);
    ~ReadTransaction();
    ReadTransaction(const ReadTransaction&) = delete;
    ReadTransaction& operator=(const ReadTransaction&) = delete;

  private:
    Database& m_database;
    bool m_own; // false inside another transaction, which serves as well
};

} // namespace vandrel
