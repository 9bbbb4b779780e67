#pragma once

#include "cli/console.h"
#include "cli/exit_status.h"
#include "platform/host.h"

namespace corvane {

/// `corvane-cli snapshots`: the snapshots that the system keeps on the start-up disk.
struct SnapshotsCommand {
    bool json = false;

    [[nodiscard]] ExitStatus run(Console &console, const Host &host) const;
};

} // namespace corvane
