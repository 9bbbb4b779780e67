#pragma once

#include <functional>
#include <map>
#include <string>
#include <vector>

#include <sys/types.h>

namespace corvane {

/// What became of a run.
struct ProgramResult {
    int exitStatus = -1; ///< -1 where a signal ended the program
    int signal = 0;
    std::string out;
    std::string errors;
};

/// One run of the real program with captured output. Its environment holds only what the test sets, a path, a
/// terminal type and what sanitizers read. A run that takes longer than a minute is ended, which shows as a signal.
class Program {
public:
    explicit Program(std::vector<std::string> arguments);

    /// Runs another program of ours.
    Program &at(const std::string &path);
    Program &in(const std::string &folder);
    Program &with(const std::string &name, const std::string &value);

    /// Runs it through another program, to which the program's path and arguments are handed.
    Program &through(std::vector<std::string> launcher);

    /// Where the tests run as root: runs it as a user for whom permissions hold.
    Program &asOrdinaryUser();

    /// Called with the program's process once it runs.
    Program &meanwhile(std::function<void(pid_t)> action);

    [[nodiscard]] ProgramResult run() const;

    /// The path of the program under test.
    [[nodiscard]] static std::string path();

    /// Turns the calling process, a fresh child, into the program.
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

/// The user id of somebody who owns nothing.
inline constexpr unsigned nobody = 65534;

} // namespace corvane
