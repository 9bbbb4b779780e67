// Runs several commands in turn, round after round, so that other load on the machine affects all of them alike, and
// prints for each the median time, the spread and the peak memory, beside the goals.
//
//   bench_race [--rounds N] [--before COMMAND] [--at-most NAME FACTOR]… [--at-most-fastest START FACTOR]…
//              [--at-least NAME FACTOR]… [--peak MB] NAME COMMAND [NAME COMMAND]…
//
// The first command is the subject: it should take at most FACTOR times as long as NAME, or as the fastest command
// whose name begins with START, or be at least FACTOR times as fast, and use at most that much memory. A goal for a
// NAME that is not run is skipped. Every command runs once before the first round, to warm the disk cache; with
// --before, that COMMAND runs before each run instead. Their output is discarded. Exits with 1 if a command fails, 0
// otherwise: a missed goal is only printed.

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <cstdlib>
#include <map>
#include <optional>
#include <span>
#include <stdexcept>
#include <string>
#include <string_view>
#include <system_error>
#include <vector>

#include <fcntl.h>
#include <spawn.h>
#include <sys/resource.h>
#include <sys/wait.h>

#include <fmt/format.h>

#include "support.h"

extern char **environ;

namespace {

struct Goal {
    enum class Kind { atMost, atMostFastest, atLeast } kind;
    std::string name;
    double factor;
};

const std::map<std::string, Goal::Kind> goalKinds{{"--at-most", Goal::Kind::atMost},
                                                  {"--at-most-fastest", Goal::Kind::atMostFastest},
                                                  {"--at-least", Goal::Kind::atLeast}};

struct Runner {
    std::string name;
    std::string command;
    std::vector<double> seconds; // one per round
    double peakMegabytes = 0;    // the maximum over all rounds
};

struct Options {
    int rounds = 7;
    std::string before;
    std::vector<Goal> goals;
    double peakMegabytes = 0; // 0 means no goal
    std::vector<Runner> runners;
};

/// A command's time and memory.
struct Measured {
    double seconds;
    double megabytes;
};

Measured run(const std::string &command)
{
    std::string shell = "sh", option = "-c", text = "exec " + command;
    char *const arguments[] = {shell.data(), option.data(), text.data(), nullptr};
    posix_spawn_file_actions_t actions;
    ::posix_spawn_file_actions_init(&actions);
    ::posix_spawn_file_actions_addopen(&actions, 0, "/dev/null", O_RDONLY, 0);
    ::posix_spawn_file_actions_addopen(&actions, 1, "/dev/null", O_WRONLY, 0);
    ::posix_spawn_file_actions_addopen(&actions, 2, "/dev/null", O_WRONLY, 0);
    const auto start = std::chrono::steady_clock::now();
    pid_t child = 0;
    const int code = ::posix_spawn(&child, "/bin/sh", &actions, nullptr, arguments, environ);
    ::posix_spawn_file_actions_destroy(&actions);
    if (code != 0)
        throw std::system_error(code, std::generic_category(), command);
    int status = 0;
    rusage usage{};
    while (::wait4(child, &status, 0, &usage) < 0 && errno == EINTR) {}
    const std::chrono::duration<double> taken = std::chrono::steady_clock::now() - start;
    if (!WIFEXITED(status) || WEXITSTATUS(status) != 0)
        throw std::runtime_error("failed: " + command);
#ifdef __APPLE__
    constexpr double unitsPerMegabyte = 1e6; // ru_maxrss is in bytes there, in units of 1024 bytes elsewhere
#else
    constexpr double unitsPerMegabyte = 1e6 / 1024;
#endif
    return {taken.count(), static_cast<double>(usage.ru_maxrss) / unitsPerMegabyte};
}

/// How many times as long as `other` a command takes: the median over the rounds, each of which compares two
/// consecutive runs.
double ratio(const Runner &runner, const Runner &other)
{
    std::vector<double> ratios;
    for (std::size_t round = 0; round < runner.seconds.size(); ++round)
        ratios.push_back(runner.seconds[round] / other.seconds[round]);
    return median(std::move(ratios));
}

Options parse(std::span<char *> arguments)
{
    Options options;
    const auto next = [&] {
        if (arguments.empty())
            throw std::invalid_argument("an argument is missing at the end");
        const std::string text = arguments.front();
        arguments = arguments.subspan(1);
        return text;
    };
    while (!arguments.empty()) {
        std::string name = next();
        if (name == "--rounds") {
            const std::optional<int> rounds = positiveNumber(next());
            if (!rounds)
                throw std::invalid_argument("the number of rounds must be a positive number");
            options.rounds = *rounds;
        } else if (name == "--before") {
            options.before = next();
        } else if (name == "--peak") {
            options.peakMegabytes = std::stod(next());
        } else if (const auto kind = goalKinds.find(name); kind != goalKinds.end()) {
            std::string other = next();
            options.goals.push_back({kind->second, std::move(other), std::stod(next())});
        } else {
            options.runners.push_back({.name = std::move(name), .command = next(), .seconds = {}});
        }
    }
    if (options.runners.empty())
        throw std::invalid_argument("there is nothing to run");
    return options;
}

/// The command that a goal refers to; null if it is not run.
const Runner *opponent(const std::vector<Runner> &runners, const Goal &goal)
{
    const Runner *found = nullptr;
    for (const Runner &runner : runners) {
        const bool isMeant =
            goal.kind == Goal::Kind::atMostFastest ? runner.name.starts_with(goal.name) : runner.name == goal.name;
        if (isMeant && (!found || median(runner.seconds) < median(found->seconds)))
            found = &runner;
    }
    return found;
}

void report(const Options &options)
{
    const Runner &subject = options.runners.front();
    fmt::print("  {:<24} {:>9}  {:>17}  {:>9}  {:>8}\n", "", "median s", "fastest-slowest", "ratio", "peak MB");
    for (const Runner &runner : options.runners) {
        const auto [fastest, slowest] = std::ranges::minmax(runner.seconds);
        fmt::print("  {:<24} {:>9.3f}  {:>8.3f}-{:<8.3f}  {:>8.2f}x  {:>8.1f}\n", runner.name, median(runner.seconds),
                   fastest, slowest, ratio(runner, subject), runner.peakMegabytes);
    }
    for (const Goal &goal : options.goals) {
        const Runner *const other = opponent(options.runners, goal);
        if (!other)
            continue;
        if (goal.kind != Goal::Kind::atLeast) {
            const double reached = ratio(subject, *other);
            fmt::print("  goal: at most {:.2f}x as long as {}: {:.2f}x, {}\n", goal.factor, other->name, reached,
                       verdict(reached <= goal.factor));
        } else {
            const double reached = ratio(*other, subject);
            fmt::print("  goal: at least {:.1f}x as fast as {}: {:.2f}x, {}\n", goal.factor, goal.name, reached,
                       verdict(reached >= goal.factor));
        }
    }
    if (options.peakMegabytes > 0) {
        fmt::print("  goal: at most {:.0f} MB of memory: {:.1f} MB, {}\n", options.peakMegabytes, subject.peakMegabytes,
                   verdict(subject.peakMegabytes <= options.peakMegabytes));
    }
}

} // namespace

int main(int argc, char **argv)
try {
    Options options = parse(std::span(argv + 1, static_cast<std::size_t>(argc - 1)));
    for (int round = options.before.empty() ? -1 : 0; round < options.rounds; ++round) {
        for (Runner &runner : options.runners) {
            if (!options.before.empty())
                run(options.before);
            const Measured measured = run(runner.command);
            if (round < 0)
                continue;
            runner.seconds.push_back(measured.seconds);
            runner.peakMegabytes = std::max(runner.peakMegabytes, measured.megabytes);
        }
    }
    report(options);
    return EXIT_SUCCESS;
} catch (const std::exception &error) {
    fmt::print(stderr, "bench_race: {}\n", error.what());
    return EXIT_FAILURE;
}
