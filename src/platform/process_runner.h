#pragma once

#include <atomic>
#include <chrono>
#include <cstddef>
#include <string>
#include <vector>

#include "platform/error.h"

namespace corvane {

/// What a program may take; one that takes more is ended and has failed.
struct ProcessLimits {
    std::size_t output = 64'000'000; ///< bytes on standard output
    std::chrono::milliseconds time = std::chrono::seconds(30);
};

/// Starts the program at `path` directly (no shell, no change of the environment) with the arguments as they
/// are and returns all that it wrote on standard output, once it has exited. What it writes on standard error
/// is read and thrown away, so that it cannot block on a full pipe. An exit status other than 0 is an error.
/// Blocks for as long as the program runs, within its limits, or until `stop` is set, which ends it and what it has
/// started; safe from any thread but the main one.
[[nodiscard]] Expected<std::string> runProcess(const std::string &path, const std::vector<std::string> &arguments,
                                               const std::atomic<bool> &stop, const ProcessLimits &limits = {});

} // namespace corvane
