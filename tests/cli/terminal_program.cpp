#include "cli/terminal_program.h"

#include <array>
#include <cerrno>
#include <chrono>
#include <csignal>
#include <system_error>
#include <utility>

#include <poll.h>
#ifdef __APPLE__
#include <util.h>
#else
#include <pty.h>
#endif
#include <sys/wait.h>
#include <unistd.h>

namespace corvane {

namespace {

constexpr std::chrono::seconds longestWait{60};

} // namespace

TerminalProgram::TerminalProgram(const Program &program, unsigned short columns)
{
    winsize size{};
    size.ws_row = 40;
    size.ws_col = columns;
    m_child = forkpty(&m_terminal, nullptr, nullptr, &size);
    if (m_child < 0)
        throw std::system_error(errno, std::generic_category(), "forkpty");
    if (m_child == 0)
        program.become();
}

TerminalProgram::~TerminalProgram()
{
    if (m_child > 0) {
        kill(m_child, SIGKILL);
        waitpid(m_child, nullptr, 0);
    }
    hangUp();
}

bool TerminalProgram::readSome()
{
    pollfd wait{m_terminal, POLLIN, 0};
    if (poll(&wait, 1, 100) <= 0)
        return true;
    std::array<char, 4096> buffer{};
    const ssize_t count = read(m_terminal, buffer.data(), buffer.size());
    // A terminal returns an error once its last program has exited.
    if (count <= 0)
        return count < 0 && errno == EINTR;
    m_screen.append(buffer.data(), static_cast<std::size_t>(count));
    return true;
}

bool TerminalProgram::waitFor(std::string_view text)
{
    const auto end = std::chrono::steady_clock::now() + longestWait;
    while (m_screen.find(text) == std::string::npos) {
        if (std::chrono::steady_clock::now() > end || !readSome())
            return m_screen.find(text) != std::string::npos;
    }
    return true;
}

void TerminalProgram::type(std::string_view text) const
{
    if (write(m_terminal, text.data(), text.size()) != static_cast<ssize_t>(text.size()))
        throw std::system_error(errno, std::generic_category(), "write to the terminal");
}

void TerminalProgram::hangUp()
{
    if (m_terminal >= 0)
        close(std::exchange(m_terminal, -1));
}

ProgramResult TerminalProgram::finish()
{
    const auto end = std::chrono::steady_clock::now() + longestWait;
    while (m_terminal >= 0 && readSome()) {
        if (std::chrono::steady_clock::now() > end)
            kill(m_child, SIGKILL);
    }
    int status = 0;
    while (waitpid(m_child, &status, 0) < 0 && errno == EINTR) {}
    m_child = -1;
    ProgramResult result;
    result.out = m_screen;
    if (WIFEXITED(status))
        result.exitStatus = WEXITSTATUS(status);
    else
        result.signal = WTERMSIG(status);
    return result;
}

} // namespace corvane
