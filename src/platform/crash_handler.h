#pragma once

#include <optional>
#include <string>

namespace corvane {

/// The program named in a report.
struct CrashingProgram {
    std::string version; ///< "1.2.0"
    std::string build;   ///< "10200"
};

/// Installs handlers for signals such as SIGSEGV and SIGABRT that write a report to `crashReportsFolder()` and then let
/// the signal end the program as before. The report contains the name and number of the signal and the code addresses
/// of the crashed stack, but no memory contents, files, environment, command line or paths. The folder is created when
/// needed. Call once, before other threads exist; a stack overflow is reported for the calling thread only. Returns
/// false if no reports are written: on a system that writes them itself, and in builds with sanitizers, which handle
/// these signals.
bool installCrashHandler(const CrashingProgram &program);

/// The folder for reports of `installCrashHandler`, absolute; nothing on a system that writes reports itself.
[[nodiscard]] std::optional<std::string> crashReportsFolder();

} // namespace corvane
