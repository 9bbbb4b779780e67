#include "cli/program.h"

#include <array>
#include <cerrno>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <system_error>
#include <utility>

#include <fcntl.h>
#include <grp.h>
#include <poll.h>
#include <sys/wait.h>
#include <unistd.h>

namespace corvane {

namespace {

constexpr std::chrono::seconds longestRun{60};
constexpr int cannotStart = 127;

struct Pipe {
    Pipe()
    {
        std::array<int, 2> ends{};
        if (pipe(ends.data()) != 0)
            throw std::system_error(errno, std::generic_category(), "pipe");
        readEnd = ends[0];
        writeEnd = ends[1];
        fcntl(readEnd, F_SETFD, FD_CLOEXEC);
        fcntl(writeEnd, F_SETFD, FD_CLOEXEC);
    }
    ~Pipe()
    {
        close(readEnd);
        closeWriteEnd();
    }
    Pipe(const Pipe &) = delete;
    Pipe &operator=(const Pipe &) = delete;

    void closeWriteEnd()
    {
        if (writeEnd >= 0)
            close(writeEnd);
        writeEnd = -1;
    }

    int readEnd = -1;
    int writeEnd = -1;
};

/// Reads both pipes to the end; returns false on timeout.
bool readAll(const Pipe &out, const Pipe &errors, ProgramResult &result)
{
    using Clock = std::chrono::steady_clock;
    const Clock::time_point end = Clock::now() + longestRun;
    std::array<pollfd, 2> waits{{{out.readEnd, POLLIN, 0}, {errors.readEnd, POLLIN, 0}}};
    const std::array<std::string *, 2> texts{&result.out, &result.errors};
    while (waits[0].fd >= 0 || waits[1].fd >= 0) {
        if (Clock::now() > end)
            return false;
        poll(waits.data(), waits.size(), 100);
        for (std::size_t i = 0; i < waits.size(); ++i) {
            if (waits[i].fd < 0 || waits[i].revents == 0)
                continue;
            std::array<char, 65536> buffer{};
            const ssize_t count = read(waits[i].fd, buffer.data(), buffer.size());
            if (count > 0)
                texts[i]->append(buffer.data(), static_cast<std::size_t>(count));
            else if (count == 0 || errno != EINTR)
                waits[i].fd = -1;
        }
    }
    return true;
}

std::vector<char *> pointers(std::vector<std::string> &texts)
{
    std::vector<char *> result;
    result.reserve(texts.size() + 1);
    for (std::string &text : texts)
        result.push_back(text.data());
    result.push_back(nullptr);
    return result;
}

} // namespace

Program::Program(std::vector<std::string> arguments) : m_arguments(std::move(arguments))
{
    m_environment["PATH"] = "/usr/local/bin:/usr/bin:/bin";
    m_environment["TERM"] = "xterm-256color";
    for (const char *const name : {"ASAN_OPTIONS", "LSAN_OPTIONS", "UBSAN_OPTIONS", "TSAN_OPTIONS"}) {
        if (const char *const value = std::getenv(name))
            m_environment[name] = value;
    }
}

Program &Program::at(const std::string &path)
{
    m_path = path;
    return *this;
}

Program &Program::in(const std::string &folder)
{
    m_folder = folder;
    return *this;
}

Program &Program::with(const std::string &name, const std::string &value)
{
    m_environment[name] = value;
    return *this;
}

Program &Program::through(std::vector<std::string> launcher)
{
    m_launcher = std::move(launcher);
    return *this;
}

Program &Program::asOrdinaryUser()
{
    m_asOrdinaryUser = geteuid() == 0;
    return *this;
}

Program &Program::meanwhile(std::function<void(pid_t)> action)
{
    m_action = std::move(action);
    return *this;
}

std::string Program::path()
{
    return CORVANE_CLI_PROGRAM;
}

void Program::become() const
{
    // env sets the environment and searches PATH for the launcher.
    std::vector<std::string> line{"/usr/bin/env", "-i"};
    for (const auto &[name, value] : m_environment)
        line.push_back(name + "=" + value);
    line.insert(line.end(), m_launcher.begin(), m_launcher.end());
    line.push_back(m_path);
    line.insert(line.end(), m_arguments.begin(), m_arguments.end());
    const std::vector<char *> arguments = pointers(line);

    std::signal(SIGPIPE, SIG_DFL);
    if (!m_folder.empty() && chdir(m_folder.c_str()) != 0)
        _exit(cannotStart);
    if (m_asOrdinaryUser && (setgroups(0, nullptr) != 0 || setgid(nobody) != 0 || setuid(nobody) != 0))
        _exit(cannotStart);
    execv(arguments.front(), arguments.data());
    _exit(cannotStart);
}

ProgramResult Program::run() const
{
    Pipe out;
    Pipe errors;
    const pid_t child = fork();
    if (child < 0)
        throw std::system_error(errno, std::generic_category(), "fork");
    if (child == 0) {
        const int nothing = open("/dev/null", O_RDONLY);
        dup2(nothing, STDIN_FILENO);
        dup2(out.writeEnd, STDOUT_FILENO);
        dup2(errors.writeEnd, STDERR_FILENO);
        setsid();
        become();
    }
    out.closeWriteEnd();
    errors.closeWriteEnd();
    if (m_action)
        m_action(child);

    ProgramResult result;
    if (!readAll(out, errors, result))
        kill(child, SIGKILL);
    int status = 0;
    while (waitpid(child, &status, 0) < 0 && errno == EINTR) {}
    if (WIFEXITED(status))
        result.exitStatus = WEXITSTATUS(status);
    else
        result.signal = WTERMSIG(status);
    return result;
}

} // namespace corvane
