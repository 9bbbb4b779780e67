#pragma once

#include <string>
#include <vector>

namespace corvane {

/// One system's places that must never be removed, in addition to those common to all systems. Entries named "home…"
/// are relative to the user's home folder, without a leading slash.
struct ProtectedPlaces {
    std::vector<std::string> exact;    ///< the place itself
    std::vector<std::string> prefixes; ///< the place and everything inside it
    std::vector<std::string> homeExact;
    std::vector<std::string> homePrefixes;
    /// Trash folders relative to the top of a volume ("a/b" also protects "a"), and the names of their subfolders. The
    /// folders themselves are protected, not their contents.
    std::vector<std::string> trashFolders = {};
    std::vector<std::string> trashParts = {};
    bool ignoresCase = false; ///< whether disks usually treat "/Users" and "/users" as equal
};

/// The running system's table.
[[nodiscard]] const ProtectedPlaces &systemProtectedPlaces();

/// Folders without disk space of their own, such as virtual file systems of the kernel; never entered.
[[nodiscard]] const std::vector<std::string> &systemVirtualFolders();

} // namespace corvane
