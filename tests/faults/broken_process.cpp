#include "broken_process.h"

#include <csignal>
#include <cstdlib>

#include <sys/wait.h>
#include <unistd.h>

namespace vandrel::test {

ClerkProcess::ClerkProcess(const std::vector<std::string>& arguments) {
    std::vector<std::string> words = arguments;
    words.insert(words.begin(), VANDREL_STORE_LOOP);
    std::vector<char*> pointers;
    for (std::string& word : words)
        pointers.push_back(word.data());
    pointers.push_back(nullptr);
    int ends[2];
    if (pipe(ends) != 0) std::abort();
    m_process = fork();
    if (m_process == 0) {
        dup2(ends[1], STDOUT_FILENO);
        close(ends[0]);
        close(ends[1]);
        execv(pointers[0], pointers.data());
        _exit(127);
    }
    close(ends[1]);
    m_output = ends[0];
}

ClerkProcess::~ClerkProcess() {
    if (m_process > 0) kill();
    close(m_output);
}

bool ClerkProcess::more() {
    char buffer[4096];
    const ssize_t got = read(m_output, buffer, sizeof buffer);
    if (got <= 0) return false;
    m_pending.append(buffer, static_cast<std::size_t>(got));
    return true;
}

std::string ClerkProcess::line() {
    std::size_t end = 0;
    while ((end = m_pending.find('\n')) == std::string::npos)
        if (!more()) return {};
    std::string result = m_pending.substr(0, end);
    m_pending.erase(0, end + 1);
    return result;
}

void ClerkProcess::wait() {
    int status = 0;
    waitpid(m_process, &status, 0);
    m_process = -1;
    m_exitCode = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

std::vector<std::string> ClerkProcess::lines() {
    std::vector<std::string> result;
    for (std::string next = line(); !next.empty(); next = line())
        result.push_back(next);
    wait();
    return result;
}

std::vector<std::string> ClerkProcess::kill() {
    ::kill(m_process, SIGKILL);
    return lines();
}

} // namespace vandrel::test
