#include "platform/crash_handler.h"

#include <cstdlib>

#include "platform/environment.h"

namespace corvane {

std::optional<std::string> crashReportsFolder()
{
    if (const char *state = std::getenv("XDG_STATE_HOME"); state != nullptr && *state == '/')
        return std::string(state) + "/corvane/reports";
    const char *home = std::getenv("HOME");
    return (home != nullptr && *home == '/' ? std::string(home) : Environment::accountHome()) +
           "/.local/state/corvane/reports";
}

} // namespace corvane
