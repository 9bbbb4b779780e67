#pragma once

#include <cstdint>
#include <string>

#include "platform/host.h"

namespace corvane {

/// The facts of the volume that holds "/".
struct VolumeInfo {
    std::string name;
    std::int64_t total = 0;     ///< bytes
    std::int64_t available = 0; ///< bytes; the larger of what is free and what could be made free

    /// Never fails: what the system does not tell is 0, the name "Macintosh HD".
    [[nodiscard]] static VolumeInfo current(Volumes &volumes = systemHost().volumes);

    friend bool operator==(const VolumeInfo &, const VolumeInfo &) = default;
};

} // namespace corvane
