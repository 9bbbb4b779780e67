#pragma once

#include <cstdint>
#include <string>

#include "platform/host.h"

namespace corvane {

/// What the system reports of the start-up disk: of the volume that holds "/", or, on a Linux system whose home folder
/// lies on a file system of its own, of both together. Figures that are no sizes on a disk, or cannot be added up, are
/// absent.
[[nodiscard]] VolumeFacts startupDiskFacts(const Host &host);

/// What the disk that holds "/" is called where its volume has no name.
[[nodiscard]] std::string diskName(FileSystem &files);

/// The facts without figures that are no sizes on a disk.
[[nodiscard]] VolumeFacts withoutNonsense(VolumeFacts facts);

/// The facts of the start-up disk.
struct VolumeInfo {
    std::string name;
    std::int64_t total = 0;     ///< bytes
    std::int64_t available = 0; ///< bytes; the larger of what is free and what could be made free

    /// Never fails: what the system does not tell is 0, the name that of `diskName`.
    [[nodiscard]] static VolumeInfo current(const Host &host = systemHost());

    friend bool operator==(const VolumeInfo &, const VolumeInfo &) = default;
};

} // namespace corvane
