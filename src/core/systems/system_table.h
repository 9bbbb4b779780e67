#pragma once

#include <span>
#include <string_view>

#include "platform/system_kind.h"

namespace corvane {

/// The differences between the systems that a root can contain, one table each.
struct SystemTable {
    std::span<const std::string_view> skippedFolders; ///< never entered by a walk; full paths
    /// Whether the disk consists of the file systems of "/" and of the home folder, found from the mounts: walks stay
    /// on them, and the capacity is their sum.
    bool isMadeOfMounts;
    /// The file below the home folder whose readability indicates Full Disk Access; empty if being able to open the
    /// home folder is sufficient.
    std::string_view accessProbe;
    std::string_view diskName; ///< if neither the volume nor the system has a name for the disk
    /// Whether the system defines its own locations for caches, the Trash and the like (`FileSystem::ownPlaceFor`).
    bool hasOwnPlaces;
};

/// Static storage.
[[nodiscard]] const SystemTable &systemTableOf(SystemKind kind);

} // namespace corvane
