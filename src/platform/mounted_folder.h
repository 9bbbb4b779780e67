#pragma once

#include <cstdint>
#include <string>

namespace corvane {

/// A mount point of a file system, or of a part of one.
struct MountedFolder {
    std::string path;             ///< absolute, links resolved
    std::uint64_t fileSystem = 0; ///< the same for every mount of one file system
    std::string shown = "/";      ///< the folder of the file system that is visible there; "/" for all of it
    std::string source = {};      ///< the mounted object, such as a device's path; empty if unknown
    std::string pool = {};        ///< the ZFS pool that provides its free space; empty for others
    bool mayNotAnswer = false;    ///< on a network, or served by another program

    friend bool operator==(const MountedFolder &, const MountedFolder &) = default;
};

} // namespace corvane
