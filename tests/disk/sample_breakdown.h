#pragma once

#include <string>

#include "disk/disk_breakdown.h"

namespace corvane::test {

inline LocalSnapshot snapshotAt(int hour)
{
    using namespace std::chrono;
    return {"com.apple.TimeMachine.2026-11-20-" + std::to_string(10 + hour) + "0000.local",
            Time(sys_days(2026y / November / 20)) + hours(hour)};
}

/// A scanned Mac of 994.66 GB with 811.29 GB in use, 38.12 GB of it unexplained.
inline DiskBreakdown sampleBreakdown()
{
    using Kind = BreakdownSegment::Kind;
    using Action = BreakdownAction::Kind;
    DiskBreakdown disk;
    disk.volumeName = "Macintosh HD";
    disk.total = 994'660'000'000;
    disk.free = 183'370'000'000;
    disk.hasScan = true;
    disk.fromAPFS = true;
    disk.segments = {
        {"scanned",
         Kind::scanned,
         "Your Home Folder",
         "Your documents.",
         "house",
         {0.33, 0.43, 1.0},
         642'430'000'000,
         {{"Library", 174'000'000'000}, {"Movies", 156'820'000'000}},
         BreakdownAction{Action::openMap, {}},
         "Open Space Map"},
        {"/Applications",
         Kind::measured,
         "Applications",
         "Apps.",
         "app.badge",
         {0.24, 0.52, 0.98},
         73'800'000'000,
         {{"Xcode.app", 12'840'000'000}},
         BreakdownAction{Action::reveal, "/Applications"},
         "Show in Finder"},
        {"hidden",
         Kind::hidden,
         "Hidden System Data",
         "Files macOS doesn't let apps measure.",
         "eye.slash",
         {0.93, 0.42, 0.4},
         38'120'000'000,
         {},
         BreakdownAction{Action::fullDiskAccess, {}},
         "Grant Full Disk Access"},
        {"/Library",
         Kind::measured,
         "System-wide Library",
         "Shared app data.",
         "building.columns",
         {0.62, 0.36, 0.96},
         31'270'000'000,
         {},
         BreakdownAction{Action::reveal, "/Library"},
         "Show in Finder"},
        {"system", Kind::system, "macOS", "Sealed.", "apple.logo", {0.45, 0.52, 0.62}, 11'240'000'000, {}, {}, {}},
        {"support",
         Kind::support,
         "macOS Support Files",
         "Boot files.",
         "wrench.and.screwdriver",
         {0.6, 0.63, 0.69},
         10'140'000'000,
         {},
         {},
         {}},
        {"vm",
         Kind::vm,
         "Swap & Sleep Image",
         "Virtual memory.",
         "memorychip",
         {0.2, 0.62, 0.7},
         4'290'000'000,
         {},
         {},
         {}},
    };
    return disk;
}

/// The same Mac before a scan.
inline DiskBreakdown unscannedBreakdown()
{
    DiskBreakdown disk = sampleBreakdown();
    disk.hasScan = false;
    disk.segments[0] = {"hidden",
                        BreakdownSegment::Kind::hidden,
                        "Not Scanned Yet",
                        "Not scanned yet.",
                        "questionmark.folder",
                        {0.93, 0.42, 0.4},
                        680'550'000'000,
                        {},
                        BreakdownAction{BreakdownAction::Kind::scanHome, {}},
                        "Scan Home Folder"};
    disk.segments.erase(disk.segments.begin() + 2);
    return disk;
}

} // namespace corvane::test
