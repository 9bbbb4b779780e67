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

extern char **environ; // NOLINT: declared by no header on macOS

namespace corvane {

namespace {

// Milliseconds between two looks: at whether the answer is still wanted, and at whether the program is over once it
// has nothing more to say.
constexpr int stopInterval = 200;
constexpr int exitInterval = 10;

Error failure(std::string operation, const std::string &path, int code)
{
    return {std::move(operation), path, std::error_code(code, std::generic_category()), {}};
}

/// One end of a pipe; closed by its destructor.
class Descriptor {
public:
    explicit Descriptor(int fd = -1) : m_fd(fd) {}
    Descriptor(const Descriptor &) = delete;
    Descriptor &operator=(const Descriptor &) = delete;
    ~Descriptor() { close(); }

    [[nodiscard]] int get() const { return m_fd; }
    [[nodiscard]] bool isOpen() const { return m_fd >= 0; }
    void set(int fd)
    {
        close();
        m_fd = fd;
    }
    void close()
    {
        if (m_fd >= 0)
            ::close(m_fd);
        m_fd = -1;
    }

private:
    int m_fd;
};

struct Pipe {
    Descriptor read;
    Descriptor write;

    bool open()
    {
        std::array<int, 2> ends{};
#ifdef __linux__
        if (::pipe2(ends.data(), O_CLOEXEC) != 0)
            return false;
#else
        if (::pipe(ends.data()) != 0)
            return false;
        ::fcntl(ends[0], F_SETFD, FD_CLOEXEC);
        ::fcntl(ends[1], F_SETFD, FD_CLOEXEC);
#endif
        read.set(ends[0]);
        write.set(ends[1]);
        return true;
    }
};

// Reads what is there; closes the end at its end. `into` null: thrown away.
void drain(Descriptor &end, std::string *into)
{
    std::array<char, 65536> buffer{};
    const ssize_t count = ::read(end.get(), buffer.data(), buffer.size());
    if (count > 0) {
        if (into != nullptr)
            into->append(buffer.data(), static_cast<std::size_t>(count));
    } else if (count == 0 || errno != EINTR) {
        end.close();
    }
}

/// Waits for either end to have something, at most that many milliseconds; false where there can be no waiting.
bool drainWhatComes(Descriptor &output, Descriptor &errors, std::string &text, int milliseconds)
{
    // poll() passes over a descriptor of -1.
    std::array<pollfd, 2> waited{pollfd{output.get(), POLLIN, 0}, pollfd{errors.get(), POLLIN, 0}};
    if (::poll(waited.data(), waited.size(), milliseconds) < 0)
        return errno == EINTR;
    if (waited[0].revents != 0)
        drain(output, &text);
    if (waited[1].revents != 0)
        drain(errors, nullptr);
    return true;
}

} // namespace

Expected<std::string> runProcess(const std::string &path, const std::vector<std::string> &arguments,
                                 const std::atomic<bool> &stop, const ProcessLimits &limits)
{
    struct stat facts {};
    if (::stat(path.c_str(), &facts) != 0)
        return tl::unexpected(failure("start", path, errno));
    if (!S_ISREG(facts.st_mode) || ::access(path.c_str(), X_OK) != 0)
        return tl::unexpected(failure("start", path, EACCES));

    Pipe output;
    Pipe errors;
    if (!output.open() || !errors.open())
        return tl::unexpected(failure("start", path, errno));

    std::vector<char *> argv;
    argv.push_back(const_cast<char *>(path.c_str())); // NOLINT: posix_spawn takes char *const but writes nothing
    for (const std::string &argument : arguments)
        argv.push_back(const_cast<char *>(argument.c_str())); // NOLINT
    argv.push_back(nullptr);

    posix_spawn_file_actions_t actions{};
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_addopen(&actions, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
    posix_spawn_file_actions_adddup2(&actions, output.write.get(), STDOUT_FILENO);
    posix_spawn_file_actions_adddup2(&actions, errors.write.get(), STDERR_FILENO);
    // A group of its own, so that what it starts can be ended with it.
    posix_spawnattr_t attributes{};
    posix_spawnattr_init(&attributes);
    posix_spawnattr_setflags(&attributes, POSIX_SPAWN_SETPGROUP);
    posix_spawnattr_setpgroup(&attributes, 0);
    pid_t child = 0;
    const int started = ::posix_spawn(&child, path.c_str(), &actions, &attributes, argv.data(), environ);
    posix_spawnattr_destroy(&attributes);
    posix_spawn_file_actions_destroy(&actions);
    if (started != 0)
        return tl::unexpected(failure("start", path, started));
    output.write.close();
    errors.write.close();

    using Clock = std::chrono::steady_clock;
    const Clock::time_point end = Clock::now() + limits.time;
    std::string text;
    const auto isOver = [&] { return stop || text.size() > limits.output || Clock::now() >= end; };
    while (output.read.isOpen() && !isOver()) {
        if (!drainWhatComes(output.read, errors.read, text, stopInterval))
            break;
    }
    // Standard error may stay open in a program that this one has left behind, and the program may live on without
    // its output; neither may keep what it still writes from being read.
    int status = 0;
    bool wasEnded = false;
    while (true) {
        const pid_t exited = ::waitpid(child, &status, wasEnded ? 0 : WNOHANG);
        if (exited == child)
            break;
        if (exited < 0 && errno != EINTR)
            return tl::unexpected(failure("wait for", path, errno));
        if (!wasEnded && isOver()) {
            ::kill(-child, SIGKILL);
            wasEnded = true;
        } else if (!wasEnded) {
            drainWhatComes(output.read, errors.read, text, exitInterval);
        }
    }
    if (text.size() > limits.output)
        return tl::unexpected(failure("run", path, EFBIG));
    if (!WIFEXITED(status) || WEXITSTATUS(status) != 0)
        return tl::unexpected(failure("run", path, ECANCELED));
    return text;
}

} // namespace corvane
