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
    std::vector<std::string> roles; ///< as the system's tool spells them: "System", "Data", "VM" …
    std::int64_t used = 0;          ///< bytes

    friend bool operator==(const APFSVolumeInfo &, const APFSVolumeInfo &) = default;
};

/// One APFS container: the space that its volumes share.
struct APFSContainerInfo {
    std::int64_t ceiling = 0; ///< bytes
    std::int64_t free = 0;    ///< bytes
    std::vector<APFSVolumeInfo> volumes;

    /// The container that holds a start-up volume of `matchingTotal` bytes (0 when unknown), or nothing when
    /// the layout cannot be read. Runs a tool and blocks.
    [[nodiscard]] static std::optional<APFSContainerInfo> load(std::int64_t matchingTotal,
                                                               const StopFlag &stop = neverStopped);

    /// The containers of a listing in its order; those without a ceiling or a free figure are left out.
    /// Nothing when the bytes are not such a listing.
    [[nodiscard]] static std::optional<std::vector<APFSContainerInfo>> parse(std::string_view listing);

    /// The one to take: the first with a system volume and a fitting ceiling, else the first with a fitting
    /// ceiling, else the first with a system volume.
    [[nodiscard]] static std::optional<APFSContainerInfo> choose(const std::vector<APFSContainerInfo> &containers,
                                                                 std::int64_t matchingTotal);

    friend bool operator==(const APFSContainerInfo &, const APFSContainerInfo &) = default;
};

} // namespace corvane
