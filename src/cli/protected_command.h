#pragma once

#include <string>
#include <vector>

#include "cli/console.h"
#include "cli/exit_status.h"
#include "platform/host.h"

namespace corvane {

/// `corvane-cli protected`: which paths would be refused by a removal. They need not exist.
struct ProtectedCommand {
    std::vector<std::string> paths;
    bool json = false;

    [[nodiscard]] ExitStatus run(Console &console, const Host &host) const;
};

} // namespace corvane
