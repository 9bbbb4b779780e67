#pragma once

namespace corvane {

/// The exit status of a command.
enum class ExitStatus {
    done = 0,
    doneWithFailures = 1, ///< each failure was reported on standard error
    refused = 2,          ///< invalid command line, or a path that does not exist; nothing was done
};

} // namespace corvane
