#pragma once

#include <optional>
#include <string>

namespace corvane {

/// Which program a report is about.
struct CrashingProgram {
    std::string version; ///< "1.2.0"
    std::string build;   ///< "10200"
};

/// From now on, when a signal such as SIGSEGV or SIGABRT ends the program, it leaves a report of that in
/// `crashReportsFolder()`, then ends by that signal as it would have: the name and number of the signal and the places
/// in the code that were running, nothing of memory, files, environment or command line, and no path. A folder that is
/// missing is made then. To be called once, before there are other threads; a thread's overflowing stack is reported
/// for the calling thread alone. False where reports are not written: on a system that writes them itself, and in
/// builds with sanitizers, which report on these signals themselves.
bool installCrashHandler(const CrashingProgram &program);

/// Where `installCrashHandler` has reports written, absolute; nothing on a system that writes them itself.
[[nodiscard]] std::optional<std::string> crashReportsFolder();

} // namespace corvane
