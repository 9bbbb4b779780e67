#include "platform/crash_handler.h"

namespace corvane {

// The system itself writes a report of every crash into the folder of diagnostic reports.
bool installCrashHandler(const CrashingProgram & /*program*/)
{
    return false;
}

std::optional<std::string> crashReportsFolder()
{
    return std::nullopt;
}

} // namespace corvane
