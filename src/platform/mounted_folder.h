#pragma once

#include <cstdint>
#include <string>

namespace corvane {

/// A folder on which a file system, or a part of one, is mounted.
struct MountedFolder {
    std::string path;             ///< absolute, links resolved
    std::uint64_t fileSystem = 0; ///< the same number for every mount of one file system
    std::string shown = "/";      ///< the folder of the file system that is seen there; "/" is all of it
    std::string source = {};      ///< what is mounted, such as a device's path; empty where unknown
    std::string pool = {};        ///< the ZFS pool that it shares its free space in; empty elsewhere
    bool mayNotAnswer = false;    ///< it lies behind a network, or in another program

    friend bool operator==(const MountedFolder &, const MountedFolder &) = default;
};

} // namespace corvane
