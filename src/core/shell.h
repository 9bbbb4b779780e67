#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "core/stop_flag.h"
#include "platform/process_runner.h"

namespace corvane {

/// The output of the tool at that path with those arguments; nothing where it failed.
using ToolRunner = std::function<std::optional<std::string>(const std::string &tool, const std::vector<std::string> &)>;

/// Runs the system's command-line tools.
struct Shell {
    /// The whole standard output of the tool at `path`, or nothing when it is not executable, could not be
    /// started, exited with another status than 0 or took more than its limits. Blocks until it has exited; once
    /// stopped, it is ended.
    [[nodiscard]] static std::optional<std::string> run(const std::string &path,
                                                        const std::vector<std::string> &arguments,
                                                        const StopFlag &stop = neverStopped,
                                                        const ProcessLimits &limits = {});

    /// What runs the tools of this computer. They write figures and words as without a language, which is how they are
    /// read. `stop` must outlive it.
    [[nodiscard]] static ToolRunner runner(const StopFlag &stop = neverStopped);
};

} // namespace corvane
