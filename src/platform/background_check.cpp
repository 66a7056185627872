#include "platform/background_check.h"

#include <sqlite3.h>

#include <string_view>

namespace vandrel {

namespace {

constexpr int busyMilliseconds = 1500;

// The first column of the first row as the only answer that is good.
BackgroundCheck::Result answer(sqlite3* database, const char* sql, std::string_view good) {
    using Result = BackgroundCheck::Result;
    sqlite3_stmt* statement = nullptr;
    int code = sqlite3_prepare_v2(database, sql, -1, &statement, nullptr);
    Result result = Result::unknown;
    if (code == SQLITE_OK) {
        code = sqlite3_step(statement);
        if (code == SQLITE_ROW) {
            const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(statement, 0));
            result = text != nullptr && text == good ? Result::whole : Result::damaged;
        }
    }
    if (code != SQLITE_ROW) switch (code & 0xff) {
        case SQLITE_INTERRUPT:
        case SQLITE_BUSY:
        case SQLITE_LOCKED:
        case SQLITE_NOMEM:
            break;
        default:
            result = Result::damaged;
        }
    sqlite3_finalize(statement);
    return result;
}

} // namespace

BackgroundCheck::BackgroundCheck(const QString& path) : m_path(path), m_thread([this] { run(); }) {}

BackgroundCheck::~BackgroundCheck() {
    do
        interrupt();
    while (!endsWithin(std::chrono::milliseconds(2)));
    m_thread.join();
}

bool BackgroundCheck::endsWithin(std::chrono::milliseconds time) {
    std::unique_lock lock(m_mutex);
    return m_change.wait_for(lock, time, [this] { return m_ended; });
}

void BackgroundCheck::interrupt() {
    const std::lock_guard lock(m_mutex);
    m_stopped = true;
    if (m_database != nullptr) sqlite3_interrupt(m_database);
}

void BackgroundCheck::run() {
    sqlite3* database = nullptr;
    Result result = Result::unknown;
    const int code = sqlite3_open_v2(m_path.toUtf8().constData(), &database,
                                     SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOMUTEX, nullptr);
    if (code == SQLITE_OK) {
        sqlite3_busy_timeout(database, busyMilliseconds);
        result = check(database);
    }
    const std::lock_guard lock(m_mutex);
    m_database = nullptr;
    sqlite3_close_v2(database);
    m_result = result;
    m_ended = true;
    m_change.notify_all();
}

BackgroundCheck::Result BackgroundCheck::check(sqlite3* database) {
    {
        const std::lock_guard lock(m_mutex);
        if (m_stopped) return Result::unknown;
        m_database = database;
    }
    // A changed mark of the encoding turns every text into another one, and the check below does not mind.
    const Result encoding = answer(database, "pragma encoding", "UTF-8");
    if (encoding != Result::whole) return encoding;
    return answer(database, "pragma integrity_check(1)", "ok");
}

} // namespace vandrel
