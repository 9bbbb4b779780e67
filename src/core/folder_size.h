#pragma once

#include <cstdint>
#include <string>

#include "core/stop_flag.h"
#include "platform/file_system.h"

namespace corvane {

/// The allocated bytes of every file beneath a folder: hidden ones and those inside packages included, links
/// not followed, folders' own blocks not counted, what cannot be listed as 0. One open and one listing per
/// folder, on the calling thread; any depth. Once stopped, what has been counted so far.
[[nodiscard]] std::int64_t folderSize(const std::string &path, FileSystem &files, const StopFlag &stop = neverStopped);

} // namespace corvane
