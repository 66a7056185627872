// Reads one data file through for damage, in a thread and on a connection of its own, so that the window
// stays alive. Pages, their order and the indexes beside their tables are compared; a plain value that was
// changed into another plain value is known to nobody.
#pragma once

#include <QString>

#include <chrono>
#include <condition_variable>
#include <mutex>
#include <thread>

struct sqlite3;

namespace vandrel {

class BackgroundCheck {
  public:
    enum class Result {
        whole,
        damaged, // or not readable
        unknown  // interrupted, or another program held the file
    };

    // Starts at once.
    explicit BackgroundCheck(const QString& path);
    ~BackgroundCheck(); // interrupts it
    BackgroundCheck(const BackgroundCheck&) = delete;
    BackgroundCheck& operator=(const BackgroundCheck&) = delete;

    // Waits at most so long; true when the check has ended.
    bool endsWithin(std::chrono::milliseconds time);
    // Ends the check soon; it may have to be said again.
    void interrupt();
    // Only after the end.
    Result result() const { return m_result; }

  private:
    void run();
    Result check(sqlite3* database);

    const QString m_path;
    std::mutex m_mutex; // of all below
    std::condition_variable m_change;
    bool m_ended = false;
    bool m_stopped = false;
    sqlite3* m_database = nullptr; // while it may be interrupted
    Result m_result = Result::unknown;
    std::thread m_thread; // the last member: it uses the others
};

} // namespace vandrel
