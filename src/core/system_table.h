#pragma once

#include <span>
#include <string_view>

#include "platform/system_kind.h"

namespace corvane {

/// What differs between the systems that a root can hold, one table each.
struct SystemTable {
    std::span<const std::string_view> skippedFolders; ///< never entered by a walk, by their whole path
    /// Whether the disk is the file systems of "/" and of the home folder together, as its mounts tell: a walk keeps to
    /// them, and its capacity is theirs.
    bool isMadeOfMounts;
    /// The file beneath the home folder whose readability shows Full Disk Access; empty where a home folder that can be
    /// opened shows all there is.
    std::string_view accessProbe;
    std::string_view diskName; ///< of a disk that neither its volume nor the system has a name for
    /// Whether caches, the Trash and the like have places of the system's own, which `FileSystem::ownPlaceFor` knows.
    bool hasOwnPlaces;
};

/// Of static storage.
[[nodiscard]] const SystemTable &tableOf(SystemKind kind);

} // namespace corvane
