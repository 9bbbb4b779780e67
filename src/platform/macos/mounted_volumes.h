#pragma once

#include <vector>

#include <sys/mount.h>

namespace corvane {

/// The mounted file systems as the kernel lists them, without waiting for one that no longer answers; none, with
/// `errno` set, where it does not list them.
[[nodiscard]] std::vector<struct statfs> mountedVolumes();

} // namespace corvane
