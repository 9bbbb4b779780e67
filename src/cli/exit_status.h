#pragma once

namespace corvane {

/// What the shell gets to know of a command.
enum class ExitStatus {
    done = 0,
    doneWithFailures = 1, ///< each failure was named on standard error
    refused = 2,          ///< the command line is wrong, or a path does not exist; nothing was done
};

} // namespace corvane
