#include "platform/process_runner.h"

#include <array>
#include <cerrno>
#include <chrono>
#include <csignal>
#include <fcntl.h>
#include <poll.h>
#include <spawn.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>
#include <utility>

#include "platform/failure.h"
#include "platform/file_descriptor.h"
#include "platform/posix/interrupted_call.h"
#include "platform/posix/pipe.h"

extern char **environ; // NOLINT: declared by no header on macOS

namespace corvane {

namespace {

// Milliseconds between two checks of whether the program must be ended, and of whether it has exited after closing its
// standard output.
constexpr int stopInterval = 200;
constexpr int exitInterval = 10;

// The program leads a process group of its own, so that the processes it starts can be ended with it.
constexpr short spawnFlags =
#ifdef __APPLE__
    // makePipe() cannot make its pipes close-on-exec atomically there. A child that inherited the pipe of another
    // thread's job would keep that job waiting for the end of its output.
    POSIX_SPAWN_CLOEXEC_DEFAULT |
#endif
    POSIX_SPAWN_SETPGROUP;

/// A running program with the read ends of its output. The destructor kills its process group and reaps it, unless its
/// exit status has been collected. Moved only before first use.
class Child {
public:
    Child(pid_t pid, FileDescriptor output, FileDescriptor errors)
        : m_pid(pid), m_output(std::move(output)), m_errors(std::move(errors))
    {
    }
    Child(Child &&other) noexcept
        : m_pid(std::exchange(other.m_pid, 0)), m_output(std::move(other.m_output)), m_errors(std::move(other.m_errors))
    {
    }
    Child(const Child &) = delete;
    Child &operator=(const Child &) = delete;
    ~Child()
    {
        if (m_pid == 0)
            return;
        ::kill(-m_pid, SIGKILL);
        (void)uninterrupted([&] { return ::waitpid(m_pid, nullptr, 0); });
    }

    [[nodiscard]] bool hasOutput() const { return m_output.isOpen(); }

    /// Waits up to that many milliseconds for output, appends that of standard output to `text` and discards that of
    /// standard error. Returns 0 or an `errno` value.
    [[nodiscard]] int read(std::string &text, int milliseconds)
    {
        // poll() ignores a descriptor of -1.
        std::array<pollfd, 2> waited{pollfd{m_output.number(), POLLIN, 0}, pollfd{m_errors.number(), POLLIN, 0}};
        if (::poll(waited.data(), waited.size(), milliseconds) < 0)
            return errno == EINTR ? 0 : errno;
        int code = 0;
        if (waited[1].revents != 0)
            code = drain(m_errors, nullptr);
        if (code == 0 && waited[0].revents != 0)
            code = drain(m_output, &text);
        return code;
    }

    /// As waitpid() without waiting: 0 while the program runs.
    [[nodiscard]] pid_t collectExit(int &status)
    {
        const pid_t exited = ::waitpid(m_pid, &status, WNOHANG);
        // With ECHILD the child has been reaped elsewhere, and its PID may be another process's by now: never kill it.
        if (exited == m_pid || (exited < 0 && errno == ECHILD))
            m_pid = 0;
        return exited;
    }

private:
    /// Reads what is available, and closes the descriptor at the end of the stream. Returns 0 or an `errno` value.
    static int drain(FileDescriptor &end, std::string *into)
    {
        std::array<char, 65536> buffer{};
        const ssize_t count = uninterrupted([&] { return ::read(end.number(), buffer.data(), buffer.size()); });
        if (count < 0)
            return errno;
        if (count == 0)
            end = FileDescriptor();
        else if (into != nullptr)
            into->append(buffer.data(), static_cast<std::size_t>(count));
        return 0;
    }

    pid_t m_pid; // 0 once reaped or moved from
    FileDescriptor m_output;
    FileDescriptor m_errors;
};

/// Whether a program may go on running.
class RunCondition {
public:
    RunCondition(const std::atomic<bool> &stop, const ProcessLimits &limits)
        : m_stop(stop), m_mostOutput(limits.output), m_end(Clock::now() + limits.time)
    {
    }

    /// 0 if it may, otherwise the error code of the reason to end it.
    [[nodiscard]] int check(const std::string &output) const
    {
        if (output.size() > m_mostOutput)
            return EFBIG;
        if (m_stop)
            return ECANCELED;
        return Clock::now() < m_end ? 0 : ETIMEDOUT;
    }

private:
    using Clock = std::chrono::steady_clock;

    const std::atomic<bool> &m_stop;
    const std::size_t m_mostOutput;
    const Clock::time_point m_end;
};

Expected<Child> startChild(const std::string &path, const std::vector<std::string> &arguments)
{
    constexpr const char *operation = "start";
    struct stat facts {};
    if (::stat(path.c_str(), &facts) != 0)
        return failure(operation, path, errno);
    if (!S_ISREG(facts.st_mode) || ::access(path.c_str(), X_OK) != 0)
        return failure(operation, path, EACCES);

    Expected<Pipe> output = makePipe();
    Expected<Pipe> errors = makePipe();
    if (!output || !errors)
        return failure(operation, path, (output ? errors : output).error().code.value());

    std::vector<char *> argv;
    argv.push_back(const_cast<char *>(path.c_str())); // NOLINT: posix_spawn takes char *const but writes nothing
    for (const std::string &argument : arguments)
        argv.push_back(const_cast<char *>(argument.c_str())); // NOLINT
    argv.push_back(nullptr);

    posix_spawn_file_actions_t actions{};
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_addopen(&actions, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
    posix_spawn_file_actions_adddup2(&actions, output->write.number(), STDOUT_FILENO);
    posix_spawn_file_actions_adddup2(&actions, errors->write.number(), STDERR_FILENO);
    posix_spawnattr_t attributes{};
    posix_spawnattr_init(&attributes);
    posix_spawnattr_setflags(&attributes, spawnFlags);
    posix_spawnattr_setpgroup(&attributes, 0);
    pid_t pid = 0;
    const int code = ::posix_spawn(&pid, path.c_str(), &actions, &attributes, argv.data(), environ);
    posix_spawnattr_destroy(&attributes);
    posix_spawn_file_actions_destroy(&actions);
    if (code != 0)
        return failure(operation, path, code);
    return Child(pid, std::move(output->read), std::move(errors->read));
}

/// Reads standard output to its end. Returns 0, or the code of the failure.
int readOutput(Child &child, const RunCondition &condition, std::string &text)
{
    int code = condition.check(text);
    while (code == 0 && child.hasOutput()) {
        code = child.read(text, stopInterval);
        if (code == 0)
            code = condition.check(text);
    }
    return code;
}

/// Waits for the exit of a program that has closed its standard output. Standard error is still read, so that the
/// program cannot block on it, but need not end: a process that the program leaves behind may hold it open. Returns 0
/// for an exit status of 0, otherwise the code of the failure.
int waitForExit(Child &child, const RunCondition &condition, std::string &text)
{
    while (true) {
        int status = 0;
        const pid_t exited = child.collectExit(status);
        if (exited > 0)
            return WIFEXITED(status) && WEXITSTATUS(status) == 0 ? 0 : EIO;
        if (exited < 0 && errno != EINTR)
            return errno;
        if (const int code = condition.check(text); code != 0)
            return code;
        if (const int code = child.read(text, exitInterval); code != 0)
            return code;
    }
}

} // namespace

Expected<std::string> runProcess(const std::string &path, const std::vector<std::string> &arguments,
                                 const std::atomic<bool> &stop, const ProcessLimits &limits)
{
    Expected<Child> child = startChild(path, arguments);
    if (!child)
        return tl::unexpected(child.error());
    const RunCondition condition(stop, limits);
    std::string text;
    int code = readOutput(*child, condition, text);
    if (code == 0)
        code = waitForExit(*child, condition, text);
    if (code != 0)
        return failure("run", path, code);
    return text;
}

} // namespace corvane
