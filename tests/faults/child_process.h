// A part of a trial in a process of its own, so that it can be killed or give up its rights. What it says
// comes back line by line. No data file may be open when it starts: engine handles do not survive a fork.
#pragma once

#include "platform/fault.h"

#include <cstdio>
#include <cstdlib>
#include <functional>
#include <string>
#include <vector>

#include <csignal>
#include <sys/wait.h>
#include <unistd.h>

namespace vandrel::test {

using Say = std::function<void(const std::string& line)>;

class ChildProcess {
  public:
    static constexpr int notAllowed = 77; // what work returns where this machine does not allow the trial

    explicit ChildProcess(const std::function<int(const Say& say)>& work) {
        int ends[2];
        if (pipe(ends) != 0) std::abort();
        std::fflush(nullptr);
        m_process = fork();
        if (m_process == 0) {
            int code = 1;
            try {
                code = work([&ends](const std::string& line) {
                    const std::string whole = line + '\n';
                    if (write(ends[1], whole.data(), whole.size()) != static_cast<ssize_t>(whole.size()))
                        _exit(3);
                });
            } catch (const Fault& fault) {
                std::fprintf(stderr, "%d %s\n", fault.number(), fault.what());
            }
            _exit(code);
        }
        close(ends[1]);
        m_output = fdopen(ends[0], "r");
    }
    ~ChildProcess() {
        if (m_process > 0) kill();
        std::fclose(m_output);
    }
    ChildProcess(const ChildProcess&) = delete;
    ChildProcess& operator=(const ChildProcess&) = delete;

    // Waits for the next line; empty at the end.
    std::string line() {
        std::string result;
        for (int c = std::fgetc(m_output); c != EOF && c != '\n'; c = std::fgetc(m_output))
            result.push_back(static_cast<char>(c));
        return result;
    }
    // All lines that are left, to the end of the process.
    std::vector<std::string> lines() {
        std::vector<std::string> result;
        for (std::string next = line(); !next.empty(); next = line())
            result.push_back(next);
        int status = 0;
        waitpid(std::exchange(m_process, -1), &status, 0);
        m_exitCode = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
        return result;
    }
    std::vector<std::string> kill() {
        ::kill(m_process, SIGKILL);
        return lines();
    }
    // After lines() or kill(): the exit code, or -1 when a signal ended it.
    int exitCode() const { return m_exitCode; }

  private:
    pid_t m_process = -1;
    std::FILE* m_output = nullptr;
    int m_exitCode = -1;
};

} // namespace vandrel::test
