#pragma once

#include <string>
#include <vector>

namespace corvane {

/// The places of one system that must never be removed, beyond those that hold everywhere. Entries named
/// "home…" are relative to the user's home folder and start without a slash.
struct ProtectedPlaces {
    std::vector<std::string> exact;    ///< the place itself
    std::vector<std::string> prefixes; ///< the place and everything beneath it
    std::vector<std::string> homeExact;
    std::vector<std::string> homePrefixes;
    /// The Trash folders at the top of volumes, relative to it ("a/b": then "a" is protected as well), and the names
    /// of the folders that one consists of. Protected are these folders themselves, not what lies inside.
    std::vector<std::string> trashFolders = {};
    std::vector<std::string> trashParts = {};
    bool ignoresCase = false; ///< the system's disks usually treat "/Users" and "/users" alike
};

/// This system's table.
[[nodiscard]] const ProtectedPlaces &systemProtectedPlaces();

/// Folders that hold no disk space of their own, such as those through which a kernel speaks; never entered.
[[nodiscard]] const std::vector<std::string> &systemVirtualFolders();

} // namespace corvane
