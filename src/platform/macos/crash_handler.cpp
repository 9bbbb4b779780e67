#include "platform/crash_handler.h"

namespace corvane {

std::optional<std::string> crashReportsFolder()
{
    return std::nullopt;
}

} // namespace corvane
