#pragma once

#include <optional>
#include <string>

#include <sys/types.h>

namespace corvane {

/// The block device from which the file system around that absolute path is mounted; absent where it is none, or the
/// kernel does not tell. The files' own device is another one where a file system has several volumes (btrfs).
[[nodiscard]] std::optional<dev_t> blockDeviceOf(const std::string &path);

/// "MAJOR:MINOR", as the kernel's own file system names a device.
[[nodiscard]] std::string numberOf(dev_t device);

/// Whether a block device, "MAJOR:MINOR", turns, as `devices` tells, which is the folder of all of them in the kernel's
/// own file system. A virtual machine's device says that it does, whatever its host has: it counts as unknown.
[[nodiscard]] bool isSpinning(const std::string &devices, const std::string &number);

} // namespace corvane
