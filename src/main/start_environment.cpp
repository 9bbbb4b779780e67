#include "main/start_environment.h"

#include <cstdlib>

#include <unistd.h>

#include "platform/environment.h"

namespace corvane {

namespace {

std::string variable(const char *name)
{
    const char *const value = std::getenv(name);
    return value != nullptr ? value : "";
}

} // namespace

std::optional<std::string> settleEnvironment()
{
    Environment::ignoreRelativeBaseFolders();
    const std::optional<std::string> complaint = Environment::homeComplaint();
    if (!complaint)
        return std::nullopt;
    Environment::useAccountHome();
    return *complaint + " — your account's home folder is used";
}

DesktopStart desktopStart()
{
    DesktopStart start;
    start.activationToken = variable("XDG_ACTIVATION_TOKEN");
    // The PID distinguishes this start from variables inherited by a child, such as a terminal's shell.
    const bool isMarked = !start.activationToken.empty() || !variable("DESKTOP_STARTUP_ID").empty() ||
                          variable("GIO_LAUNCHED_DESKTOP_FILE_PID") == std::to_string(::getpid());
    start.isOne = isMarked && ::isatty(STDERR_FILENO) == 0;
    return start;
}

} // namespace corvane
