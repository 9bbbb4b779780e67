#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <string_view>

#include "core/color.h"
#include "platform/system_kind.h"

namespace corvane {

/// A part of the disk that the breakdown measures the way the disk counts: the contents of its folders, without other
/// places of the same table inside them. Without folders it provides the texts of a part whose size comes from
/// elsewhere.
struct DiskPlace {
    std::string_view id;
    std::array<std::string_view, 2> folders; ///< absolute, or "~" for the home folder; the second may be empty
    std::string_view title;
    std::string_view detail;
    std::string_view symbol;
    Color color;
    bool scansHome = false; ///< its button scans the home folder instead of showing it
};

/// A folder outside the home folder that the breakdown measures with its largest children.
struct DiskLocation {
    std::string_view path;
    std::string_view title;
    std::string_view detail;
    std::string_view symbol;
    Color color;
};

/// A tool that reports the size of a folder to any user, even one who may not read the folder.
struct SizeTool {
    enum class Answer : std::uint8_t {
        sizes,        ///< one per line, in thousands
        journalUsage, ///< within a sentence
    };
    using Arguments = std::array<std::string_view, 6>; ///< trailing ones may be empty

    std::string_view folder;
    std::string_view path; ///< path of the tool
    Arguments arguments;
    Answer answer; ///< format of its output
    /// Arguments that print the tool's storage location, which must be that folder or inside it; empty if it can be no
    /// other.
    Arguments placeArguments = {};
};

/// The programs that create and list snapshots of a disk.
enum class SnapshotKeeper : std::uint8_t { timeMachine, snapper, timeshift, zfs };

/// What one system's breakdown measures, and its texts.
struct DiskTable {
    std::span<const DiskPlace> places;
    std::span<const DiskLocation> locations; ///< measured unless the scan covers them
    std::span<const SizeTool> tools;
    const DiskPlace *swap;         ///< texts for swap files; null if volumes report swap
    const DiskPlace *deletedFiles; ///< texts for open deleted files; null if they are not reported
    std::span<const SnapshotKeeper> snapshotKeepers;
    std::string_view snapshotNoun; ///< singular
    std::string_view snapshotsNoun;
    std::string_view revealTitle;
    std::string_view wholeDiskDetail; ///< for a scan of everything; empty if the places cover the whole disk
    /// Without a scan, the rest is labelled as not scanned yet. Otherwise the home folder is one of the places.
    bool leavesHomeToTheScan;
    bool shortensLegend; ///< the legend below the bar omits the folder in brackets

    // What remains after measuring everything.
    std::string_view unmeasuredTitle;
    std::string_view unmeasuredDetail;
    std::string_view unmeasuredDetailWithDenied; ///< with "{}" for the number of folders not open to the user; if
                                                 ///< empty, a separate sentence reports it
    std::string_view grantTitle;                 ///< of the button that leads to more access; empty for none

    std::string_view overcountNote; ///< "{}" is the difference
    std::string_view noLayoutNote;  ///< empty if the layout is always known
    std::string_view sizesNote;
    std::string_view reservedNote; ///< "{}" is what the file system reserves; empty if it reserves nothing
};

/// Static storage.
[[nodiscard]] const DiskTable &diskTableOf(SystemKind kind);

} // namespace corvane
