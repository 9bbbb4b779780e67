#pragma once

#include <array>

#include "core/systems/disk_table.h"

namespace corvane {

namespace mac_disk {

inline constexpr std::array snapshotKeepers{SnapshotKeeper::timeMachine};

} // namespace mac_disk

/// The disk of a Mac, where the system's own places are separate volumes.
inline constexpr DiskTable macDisk{
    .places = {},
    .tools = {},
    .swap = nullptr,
    .deletedFiles = nullptr,
    .snapshotKeepers = mac_disk::snapshotKeepers,
    .snapshotNoun = "local Time Machine snapshot",
    .snapshotsNoun = "local Time Machine snapshots",
    .revealTitle = "Show in Finder",
    .wholeDiskDetail = "Everything Corvane could read on the disk. Explore it in the Space Map.",
    .leavesHomeToTheScan = true,
    .measuresLocations = true,
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
