#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "core/stop_flag.h"
#include "platform/process_runner.h"

namespace corvane {

/// Returns the output of the tool at the given path with the given arguments; nothing if it failed.
using ToolRunner = std::function<std::optional<std::string>(const std::string &tool, const std::vector<std::string> &)>;

/// Runs the system's command-line tools.
struct Shell {
    /// The whole standard output of the tool at `path`, or nothing if it is not executable, could not be started,
    /// exited with a status other than 0, or exceeded its limits. Blocks until it has exited; setting `stop` ends it.
    [[nodiscard]] static std::optional<std::string> run(const std::string &path,
                                                        const std::vector<std::string> &arguments,
                                                        const StopFlag &stop = neverStopped,
                                                        const ProcessLimits &limits = {});

    /// Runs the tools of this computer in the C locale, which the parsers of their output expect. `stop` must outlive
    /// it.
    [[nodiscard]] static ToolRunner runner(const StopFlag &stop = neverStopped);
};

} // namespace corvane
