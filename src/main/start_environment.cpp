#include "main/start_environment.h"

#include "platform/environment.h"

namespace corvane {

std::optional<std::string> settleEnvironment()
{
    Environment::ignoreRelativeBaseFolders();
    const std::optional<std::string> complaint = Environment::homeComplaint();
    if (!complaint)
        return std::nullopt;
    Environment::useAccountHome();
    return *complaint + " — your account's home folder is used";
}

} // namespace corvane
