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

#include "platform/failure.h"
#include "platform/file_descriptor.h"
#include "platform/posix/pipe.h"

extern char **environ; // NOLINT: declared by no header on macOS

namespace corvane {

namespace {

// Milliseconds between two looks: at whether the answer is still needed, and at whether the program is over once it
// has nothing more to say.
constexpr int stopInterval = 200;
constexpr int exitInterval = 10;

// Reads what is there; closes the end at its end. `into` null: thrown away.
void drain(FileDescriptor &end, std::string *into)
{
    std::array<char, 65536> buffer{};
    const ssize_t count = ::read(end.number(), buffer.data(), buffer.size());
    if (count > 0) {
        if (into != nullptr)
            into->append(buffer.data(), static_cast<std::size_t>(count));
    } else if (count == 0 || errno != EINTR) {
        end = FileDescriptor();
    }
}

/// Waits for either end to have something, at most that many milliseconds; false where there can be no waiting.
bool drainWhatComes(FileDescriptor &output, FileDescriptor &errors, std::string &text, int milliseconds)
{
    // poll() passes over a descriptor of -1.
    std::array<pollfd, 2> waited{pollfd{output.number(), POLLIN, 0}, pollfd{errors.number(), POLLIN, 0}};
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
        return failure("start", path, errno);
    if (!S_ISREG(facts.st_mode) || ::access(path.c_str(), X_OK) != 0)
        return failure("start", path, EACCES);

    Expected<Pipe> output = makePipe();
    Expected<Pipe> errors = makePipe();
    if (!output || !errors)
        return failure("start", path, (output ? errors : output).error().code.value());

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
        return failure("start", path, started);
    output->write = FileDescriptor();
    errors->write = FileDescriptor();

    using Clock = std::chrono::steady_clock;
    const Clock::time_point end = Clock::now() + limits.time;
    std::string text;
    const auto isOver = [&] { return stop || text.size() > limits.output || Clock::now() >= end; };
    while (output->read.isOpen() && !isOver()) {
        if (!drainWhatComes(output->read, errors->read, text, stopInterval))
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
            return failure("wait for", path, errno);
        if (!wasEnded && isOver()) {
            ::kill(-child, SIGKILL);
            wasEnded = true;
        } else if (!wasEnded) {
            drainWhatComes(output->read, errors->read, text, exitInterval);
        }
    }
    if (text.size() > limits.output)
        return failure("run", path, EFBIG);
    if (!WIFEXITED(status) || WEXITSTATUS(status) != 0)
        return failure("run", path, ECANCELED);
    return text;
}

} // namespace corvane
