#pragma once

#include <array>

#include "core/systems/disk_table.h"

namespace corvane {

namespace mac_disk {

inline constexpr std::array<DiskLocation, 5> locations{{
    {"/Applications",
     "Applications",
     "Apps installed for everyone on this Mac. Remove ones you no longer use from Large Files or Finder.",
     "app.badge",
     {0.24, 0.52, 0.98}},
    {"/Library",
     "System-wide Library",
     "Shared app data, iOS Simulator runtimes, fonts, audio plug-ins and printer drivers.",
     "building.columns",
     {0.62, 0.36, 0.96}},
    {"/opt",
     "Homebrew (/opt)",
     "Homebrew packages on Apple Silicon. Tip: `brew cleanup` removes old versions.",
     "mug",
     {0.98, 0.56, 0.22}},
    {"/usr/local", "/usr/local", "Command-line tools and Homebrew on Intel Macs.", "terminal", {0.9, 0.68, 0.16}},
    {"/Users/Shared", "Shared Folder", "Files shared between all users of this Mac.", "person.2", {0.13, 0.68, 0.74}},
}};

// The volumes that share the disk with the user's, and the space that the system frees by itself.

inline constexpr DiskPlace systemVolume{
    "system",
    {},
    "macOS",
    "The read-only system volume, sealed and signed by Apple. It can't be cleaned, and it doesn't need to be.",
    "apple.logo",
    {0.45, 0.52, 0.62}};

inline constexpr DiskPlace swapVolume{
    "vm",
    {},
    "Swap & Sleep Image",
    "Virtual memory macOS writes to disk when RAM fills up. It shrinks again after a restart.",
    "memorychip",
    {0.2, 0.62, 0.7}};

inline constexpr DiskPlace supportVolumes{
    "support",
    {},
    "macOS Support Files",
    "Boot files, the Recovery system and staged software updates. Managed by macOS.",
    "wrench.and.screwdriver",
    {0.6, 0.63, 0.69}};

/// Its name is the title, and the end of the id.
inline constexpr DiskPlace otherVolume{
    "vol-", {}, {}, "Another volume sharing this disk's space.", "externaldrive", {0.78, 0.52, 0.32}};

inline constexpr DiskPlace purgeableSpace{
    "purgeable",
    {},
    "Purgeable Space",
    "Local Time Machine snapshots, iCloud copies and caches that macOS frees automatically when you need room. Finder "
    "counts it as available.",
    "clock.arrow.2.circlepath",
    {0.25, 0.75, 0.62}};

inline constexpr std::array snapshotKeepers{SnapshotKeeper::timeMachine};

} // namespace mac_disk

/// The disk of a Mac, where the system's own places are separate volumes.
inline constexpr DiskTable macDisk{
    .places = {},
    .locations = mac_disk::locations,
    .tools = {},
    .swap = nullptr,
    .deletedFiles = nullptr,
    .snapshotKeepers = mac_disk::snapshotKeepers,
    .snapshotNoun = "local Time Machine snapshot",
    .snapshotsNoun = "local Time Machine snapshots",
    .revealTitle = "Show in Finder",
    .wholeDiskDetail = "Everything Corvane could read on the disk. Explore it in the Space Map.",
    .leavesHomeToTheScan = true,
    .shortensLegend = false,
    .unmeasuredTitle = "Hidden System Data",
    .unmeasuredDetail = "Files macOS doesn't let apps measure: system caches and logs in /private/var, other users' "
                        "folders, the Spotlight index and snapshot data.",
    .unmeasuredDetailWithDenied = {},
    .grantTitle = "Grant Full Disk Access",
    .overcountNote =
        "Scanned files add up to {} more than the disk actually uses. That's normal: copies made in Finder "
        "on APFS share their storage (clones), so they're counted twice here but stored once.",
    .noLayoutNote = "Couldn't read the APFS layout, so macOS, swap and Recovery are shown as one total.",
    .sizesNote = "Sizes are the space files really occupy on disk, so they can differ slightly from the sizes Finder "
                 "shows.",
    .reservedNote = {},
};

} // namespace corvane
