#pragma once

#include <string>

#include "cli/console.h"
#include "cli/exit_status.h"
#include "platform/host.h"

namespace corvane {

/// `corvane-cli duplicates`: which files of one folder have the same contents.
struct DuplicatesCommand {
    std::string path;
    bool json = false;

    [[nodiscard]] ExitStatus run(Console &console, const Host &host) const;
};

} // namespace corvane
