#pragma once

#include <cstdint>
#include <string>

#include "platform/host.h"

namespace corvane {

/// The system's figures for the startup disk: for the volume that holds "/", or, on Linux with the home folder on a
/// file system of its own, for both together. Implausible figures, and sums that would be implausible, are absent.
[[nodiscard]] VolumeFacts startupDiskFacts(const Host &host);

/// The name of the disk that holds "/", used if its volume has none.
[[nodiscard]] std::string diskName(FileSystem &files);

/// The facts without implausible figures.
[[nodiscard]] VolumeFacts withoutImplausibleFigures(VolumeFacts facts);

/// The facts of the start-up disk.
struct VolumeInfo {
    std::string name;
    std::int64_t total = 0;     ///< bytes
    std::int64_t available = 0; ///< bytes; the larger of free and reclaimable space

    /// Never fails: unknown figures are 0, an unknown name is that of `diskName`.
    [[nodiscard]] static VolumeInfo current(const Host &host = systemHost());

    /// From 0 to 1; 0 if the total is unknown.
    [[nodiscard]] double usedFraction() const;

    friend bool operator==(const VolumeInfo &, const VolumeInfo &) = default;
};

} // namespace corvane
