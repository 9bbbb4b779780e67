#pragma once

#include <optional>
#include <string>

#include "cli/console.h"
#include "cli/exit_status.h"
#include "platform/host.h"

namespace corvane {

/// `corvane-cli scan`: where the space of one folder went.
struct ScanCommand {
    std::optional<std::string> path; ///< the home folder where none is given
    bool json = false;

    [[nodiscard]] ExitStatus run(Console &console, const Host &host) const;
};

} // namespace corvane
