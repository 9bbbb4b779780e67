#pragma once

#include <atomic>
#include <chrono>
#include <cstddef>
#include <string>
#include <vector>

#include "platform/error.h"

namespace corvane {

/// What a program may use; `runProcess` ends one that exceeds a limit, and fails.
struct ProcessLimits {
    std::size_t output = 64'000'000; ///< bytes on standard output
    std::chrono::milliseconds time = std::chrono::seconds(30);
};

/// Runs the program at `path` with these arguments and the environment of this process, without a shell, and returns
/// its whole standard output after it has exited with status 0. Its standard input is empty; its standard error is read
/// and discarded. Blocks for as long as the program runs, so do not call it from the main thread; any other thread may.
///
/// Fails with
/// - `std::errc::operation_canceled` if `stop` was set before the program had exited,
/// - `std::errc::timed_out` or `std::errc::file_too_large` if it exceeded a limit,
/// - `std::errc::io_error` if it exited with another status or was ended by a signal,
/// - otherwise the code of the system call that failed, such as `std::errc::no_such_file_or_directory` or
///   `std::errc::permission_denied` if it could not be started.
///
/// After a failure the program no longer runs. If it was ended early, so were the processes that it had started, except
/// those that have left its process group. Standard output counts as complete when the last of these processes has
/// closed it; a process that is left behind without it is not waited for.
[[nodiscard]] Expected<std::string> runProcess(const std::string &path, const std::vector<std::string> &arguments,
                                               const std::atomic<bool> &stop, const ProcessLimits &limits = {});

} // namespace corvane
