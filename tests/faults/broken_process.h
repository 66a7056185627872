// Starts the clerk's process for a trial and listens to it.
#pragma once

#include <string>
#include <vector>

#include <sys/types.h>

namespace vandrel::test {

class ClerkProcess {
  public:
    explicit ClerkProcess(const std::vector<std::string>& arguments);
    ~ClerkProcess(); // kills what is still running
    ClerkProcess(const ClerkProcess&) = delete;
    ClerkProcess& operator=(const ClerkProcess&) = delete;

    // The next whole line; empty at the end of the output.
    std::string line();
    // SIGKILL, then the lines that were whole before it.
    std::vector<std::string> kill();
    // All lines to the end of the process.
    std::vector<std::string> lines();
    // After lines() or kill(): the exit code, or -1 when a signal ended it.
    int exitCode() const { return m_exitCode; }

    static constexpr int notAllowed = 77;

  private:
    bool more();
    void wait();

    pid_t m_process = -1;
    int m_output = -1;
    std::string m_pending;
    int m_exitCode = -1;
};

} // namespace vandrel::test
