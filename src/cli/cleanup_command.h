#pragma once

#include "cli/console.h"
#include "cli/exit_status.h"
#include "platform/host.h"

namespace corvane {

/// `corvane-cli cleanup`: the well-known folders whose contents can be made again, measured. Removes nothing.
struct CleanupCommand {
    bool json = false;

    [[nodiscard]] ExitStatus run(Console &console, const Host &host) const;
};

} // namespace corvane
