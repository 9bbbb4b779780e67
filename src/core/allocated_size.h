#pragma once

#include <cstdint>
#include <string>

#include "core/stop_flag.h"
#include "platform/host.h"

namespace corvane {

/// Bytes allocated on disk for a file, or for all files below a folder, counted as `folderSize` does; 0 for a link and
/// for anything unreadable. Use this to measure anything outside the scanned tree.
[[nodiscard]] std::int64_t allocatedSize(const std::string &path, FileSystem &files = systemHost().files,
                                         const StopFlag &stop = neverStopped);

/// Bytes allocated for all files below a folder, including hidden ones and those inside packages. Does not follow
/// links, does not count the folders' own blocks, and counts a folder that cannot be listed as 0. Opens and lists each
/// folder once, on the caller's thread and those of the `WorkPool`; depth is unlimited. When stopped, returns the sum
/// so far.
[[nodiscard]] std::int64_t folderSize(const std::string &path, FileSystem &files, const StopFlag &stop = neverStopped);

} // namespace corvane
