#pragma once

#include <cstdint>
#include <string>

#include "core/stop_flag.h"
#include "platform/host.h"

namespace corvane {

/// The bytes that a file, or every file beneath a folder, takes on disk: a link as 0, what cannot be read as 0;
/// otherwise as `folderSize` counts. The one way to measure what is not in the scanned tree.
[[nodiscard]] std::int64_t allocatedSize(const std::string &path, FileSystem &files = systemHost().files,
                                         const StopFlag &stop = neverStopped);

/// The allocated bytes of every file beneath a folder: hidden ones and those inside packages included, links
/// not followed, folders' own blocks not counted, what cannot be listed as 0. One open and one listing per
/// folder, on the calling thread; any depth. Once stopped, what has been counted so far.
[[nodiscard]] std::int64_t folderSize(const std::string &path, FileSystem &files, const StopFlag &stop = neverStopped);

} // namespace corvane
