#pragma once

#include <optional>
#include <string>
#include <vector>

#include "core/stop_flag.h"

namespace corvane {

/// Runs the system's command-line tools.
struct Shell {
    /// The whole standard output of the tool at `path`, or nothing when it is not executable, could not be
    /// started or exited with another status than 0. Blocks until it has exited; once stopped, it is ended.
    [[nodiscard]] static std::optional<std::string> run(const std::string &path,
                                                        const std::vector<std::string> &arguments,
                                                        const StopFlag &stop = neverStopped);
};

} // namespace corvane
