#pragma once

#include "cli/console.h"
#include "cli/exit_status.h"
#include "core/path_guard.h"
#include "platform/host.h"

namespace corvane {

/// `corvane-cli apps`: the applications with what they keep in the Library, and what deleted ones have left there.
/// Removes nothing.
struct AppsCommand {
    bool json = false;

    [[nodiscard]] ExitStatus run(Console &console, const Host &host,
                                 const ProtectedLocations &locations = PathGuard::locations()) const;
};

} // namespace corvane
