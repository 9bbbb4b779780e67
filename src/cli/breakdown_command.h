#pragma once

#include <optional>
#include <string>

#include "cli/console.h"
#include "cli/exit_status.h"
#include "platform/host.h"

namespace corvane {

/// `corvane-cli breakdown`: where the space on the whole start-up disk went.
struct BreakdownCommand {
    std::optional<std::string> scanPath; ///< a folder to scan first, so that it is explained too
    bool json = false;

    [[nodiscard]] ExitStatus run(Console &console, const Host &host) const;
};

} // namespace corvane
