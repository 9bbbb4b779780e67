#pragma once

#include <functional>
#include <map>
#include <string>
#include <vector>

#include <sys/types.h>

namespace corvane {

/// The result of a run.
struct ProgramResult {
    int exitStatus = -1; ///< -1 if the program was killed by a signal
    int signal = 0;
    std::string out;
    std::string errors;
};

/// One run of the real program with captured output. Its environment contains only the test's variables, PATH, TERM and
/// the sanitizers' options. A run that takes longer than a minute is killed, which is reported as a signal.
class Program {
public:
    explicit Program(std::vector<std::string> arguments);

    /// Runs another program of ours.
    Program &at(const std::string &path);
    Program &in(const std::string &folder);
    Program &with(const std::string &name, const std::string &value);

    /// Runs it through a launcher, which receives the program's path and arguments.
    Program &through(std::vector<std::string> launcher);

    /// If the tests run as root: runs it as a user who is subject to permissions.
    Program &asOrdinaryUser();

    /// Calls `action` with the process id once the program runs.
    Program &meanwhile(std::function<void(pid_t)> action);

    [[nodiscard]] ProgramResult run() const;

    /// The path of the program under test.
    [[nodiscard]] static std::string path();

    /// Replaces the calling process, a forked child, with the program.
    [[noreturn]] void become() const;

private:
    std::string m_path = path();
    std::vector<std::string> m_arguments;
    std::vector<std::string> m_launcher;
    std::map<std::string, std::string> m_environment;
    std::string m_folder;
    std::function<void(pid_t)> m_action;
    bool m_asOrdinaryUser = false;
};

/// The id of a user who owns nothing.
inline constexpr unsigned nobody = 65534;

} // namespace corvane
