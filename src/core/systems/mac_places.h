#pragma once

#include <array>
#include <string_view>

/// Places of a Mac that are never entered, or never removed.
namespace corvane::mac_places {

/// Folders that are never entered, by full path: other volumes, duplicates of other folders, and pseudo file systems.
/// `ScanBounds` computes the folders for one walk.
inline constexpr std::array<std::string_view, 7> skippedFolders{"/System/Volumes", "/Volumes",        "/dev",  "/net",
                                                                "/home",           "/private/var/vm", "/cores"};

// The protected places. They are protected on every system: many exist on all of them, and a Mac's disk may be attached
// to another one. Linux adds its own in platform/linux/protected_places.cpp. Those of the home are relative to it.

/// Protected themselves; single items inside may be removed.
inline constexpr auto protectedPlaces =
    std::to_array<std::string_view>({"/", "/Applications", "/Applications/Utilities", "/Users", "/Volumes"});

/// Protected with everything inside.
inline constexpr auto protectedPrefixes = std::to_array<std::string_view>(
    {"/System", "/usr", "/bin", "/sbin", "/private", "/etc", "/var", "/dev", "/cores", "/Library", "/opt"});

/// Protected themselves. Of `mainFoldersOfHome` only those that a Mac makes; Linux protects the others.
inline constexpr auto protectedInHome = std::to_array<std::string_view>({
    "Library",
    "Documents",
    "Desktop",
    "Downloads",
    "Pictures",
    "Movies",
    "Music",
    "Applications",
    "Public",
    ".Trash",
    ".ssh",
    ".config",
    "Library/Caches",
    "Library/Developer",
    "Library/Developer/Xcode",
    "Library/Preferences/ByHost",
});

/// Protected with everything inside.
inline constexpr auto protectedPrefixesInHome = std::to_array<std::string_view>(
    {"Library/Keychains", "Library/Mail", "Library/Messages", "Library/Accounts", ".ssh", ".gnupg"});

} // namespace corvane::mac_places
