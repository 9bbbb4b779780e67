#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <string_view>

#include "core/color.h"
#include "platform/system_kind.h"

namespace corvane {

/// A part of the disk that the breakdown measures in the way that the disk counts: what lies beneath its folders, but
/// for the places of the same table that lie further inside.
struct DiskPlace {
    std::string_view id;
    std::array<std::string_view, 2> folders; ///< absolute, or "~", the home folder; the second may be empty
    std::string_view title;
    std::string_view detail;
    std::string_view symbol;
    Color color;
    bool scansHome = false; ///< its button scans the home folder rather than showing it
};

/// A tool that tells any user how much a folder holds, also one that the user may not read.
struct SizeTool {
    enum class Answer : std::uint8_t {
        sizes,        ///< one a line, in thousands
        journalUsage, ///< in a sentence
    };
    using Arguments = std::array<std::string_view, 6>; ///< the last ones may be empty

    std::string_view folder;
    std::string_view path; ///< of the tool
    Arguments arguments;
    Answer answer; ///< how its output is read
    /// Makes the tool tell where it keeps things, which has to be that folder or to lie in it; empty where it can be no
    /// other.
    Arguments placeArguments = {};
};

/// Who makes snapshots of a disk and keeps a list of them.
enum class SnapshotKeeper : std::uint8_t { timeMachine, snapper, timeshift, zfs };

/// What one system's breakdown measures beside the folders of `DiskAccountant::locations`, and how it is worded.
struct DiskTable {
    std::span<const DiskPlace> places;
    std::span<const SizeTool> tools;
    const DiskPlace *swap;         ///< the words for the files that are swapped to; null where volumes tell of swap
    const DiskPlace *deletedFiles; ///< the words for deleted files that are still open; null where they are not told
    std::span<const SnapshotKeeper> snapshotKeepers;
    std::string_view snapshotNoun; ///< of one
    std::string_view snapshotsNoun;
    std::string_view revealTitle;
    std::string_view wholeDiskDetail; ///< of a scan of everything; empty where the places are all of it
    /// Without a scan what is left is said to be not scanned yet. Otherwise the home folder is one of the places.
    bool leavesHomeToTheScan;
    bool measuresLocations; ///< those of `DiskAccountant::locations`
    bool shortensLegend;    ///< below the bar titles stand without the folder in brackets behind them

    // What is left after everything was measured.
    std::string_view unmeasuredTitle;
    std::string_view unmeasuredDetail;
    std::string_view unmeasuredDetailWithDenied; ///< with "{}" for how many folders were not open to the user; where it
                                                 ///< is empty, a sentence of its own tells it
    std::string_view grantTitle;                 ///< of the button that leads to more access; empty for none

    std::string_view overcountNote; ///< with "{}" for by how much
    std::string_view noLayoutNote;  ///< empty where no layout is missing
    std::string_view sizesNote;
    std::string_view reservedNote; ///< with "{}" for how much the file system keeps back; empty where it does not
};

/// Of static storage.
[[nodiscard]] const DiskTable &diskTableOf(SystemKind kind);

} // namespace corvane
