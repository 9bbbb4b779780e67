#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/stop_flag.h"

namespace corvane {

/// One volume of an APFS container.
struct APFSVolumeInfo {
    std::string name;
    std::vector<std::string> roles; ///< in the system tool's spelling: "System", "Data", "VM" …
    std::int64_t used = 0;          ///< bytes

    friend bool operator==(const APFSVolumeInfo &, const APFSVolumeInfo &) = default;
};

/// One APFS container, whose space is shared by its volumes.
struct APFSContainerInfo {
    std::int64_t ceiling = 0; ///< bytes
    std::int64_t free = 0;    ///< bytes
    std::vector<APFSVolumeInfo> volumes;

    /// The container that holds a startup volume of `matchingTotal` bytes (0 if unknown), or nothing if the layout
    /// cannot be read. Runs a tool and blocks.
    [[nodiscard]] static std::optional<APFSContainerInfo> load(std::int64_t matchingTotal,
                                                               const StopFlag &stop = neverStopped);

    /// The containers in a listing, in its order, without those that lack a ceiling or free figure. Nothing if the
    /// bytes are not such a listing.
    [[nodiscard]] static std::optional<std::vector<APFSContainerInfo>> parse(std::string_view listing);

    /// Selects the first container with a system volume and a matching ceiling, otherwise the first with a matching
    /// ceiling, otherwise the first with a system volume.
    [[nodiscard]] static std::optional<APFSContainerInfo> choose(const std::vector<APFSContainerInfo> &containers,
                                                                 std::int64_t matchingTotal);

    friend bool operator==(const APFSContainerInfo &, const APFSContainerInfo &) = default;
};

} // namespace corvane
