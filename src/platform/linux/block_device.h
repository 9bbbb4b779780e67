#pragma once

#include <optional>
#include <string>

#include <sys/types.h>

namespace corvane {

/// The block device of the file system that contains an absolute path; nothing if there is none, or if it is unknown.
/// st_dev of the files differs from it on a file system with several volumes (btrfs).
[[nodiscard]] std::optional<dev_t> blockDeviceOf(const std::string &path);

/// "MAJOR:MINOR", the name of a device in sysfs.
[[nodiscard]] std::string numberOf(dev_t device);

/// Whether the block device "MAJOR:MINOR" is rotational, according to `devices`, the sysfs folder of block devices. A
/// virtual device reports rotational whatever its host has, so it counts as unknown.
[[nodiscard]] bool isSpinning(const std::string &devices, const std::string &number);

} // namespace corvane
