#pragma once

#include <string>
#include <vector>

#include "cli/console.h"
#include "cli/exit_status.h"
#include "platform/host.h"

namespace corvane {

/// `corvane-cli remove`: moves items to the Trash, or deletes them, after asking on the terminal.
struct RemoveCommand {
    std::vector<std::string> paths;
    bool permanently = false;
    bool yes = false; ///< do not ask
    bool json = false;

    [[nodiscard]] ExitStatus run(Console &console, const Host &host) const;
};

} // namespace corvane
