#pragma once

#include <vector>

#include <sys/mount.h>

namespace corvane {

/// The kernel's list of mounted file systems, without waiting for one that no longer answers; empty, with `errno` set,
/// on failure.
[[nodiscard]] std::vector<struct statfs> mountedVolumes();

} // namespace corvane
