#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "core/color.h"
#include "disk/local_snapshot.h"
#include "platform/system_kind.h"

namespace corvane {

class FileNode;

/// A name and how many bytes it stands for; identified by the name (bytes).
struct NamedSize {
    std::string name;
    std::int64_t size = 0;

    friend bool operator==(const NamedSize &, const NamedSize &) = default;
};

/// What the breakdown needs to know of the last finished scan.
struct ScanContext {
    std::optional<std::string> rootPath; ///< bytes; absent before the first scan
    std::int64_t rootSize = 0;
    std::int64_t systemDirSize = 0;     ///< of a whole-disk scan, what already belongs to the system volume
    std::vector<NamedSize> topChildren; ///< largest first; of a whole-disk scan, not the system folder
    std::int64_t unreadableCount = 0;
    bool isPartial = false; ///< the scan was stopped: the sizes are those of what it had reached
    bool hasFullDiskAccess = false;

    /// What a scanned tree tells; how many of its folders could not be read is known from its summary. Whether
    /// there is access, and whether the scan was stopped, is left to the caller.
    [[nodiscard]] static ScanContext of(const FileNode &root, std::int64_t unreadableCount);
};

/// What a segment's button does; carried out by the screens.
struct BreakdownAction {
    enum class Kind { reveal, openMap, scanHome, fullDiskAccess };

    Kind kind = Kind::reveal;
    std::string path; ///< of `reveal` alone

    friend bool operator==(const BreakdownAction &, const BreakdownAction &) = default;
};

/// One explained part of the disk; identified by `id`, which is the same from one refresh to the next.
struct BreakdownSegment {
    enum class Kind { system, support, vm, scanned, measured, purgeable, hidden, otherVolume };

    std::string id;
    Kind kind = Kind::system;
    std::string title;
    std::string detail;
    std::string symbol;
    Color color;
    std::int64_t size = 0;
    std::vector<NamedSize> children; ///< the largest items inside, where known
    std::optional<BreakdownAction> action;
    std::optional<std::string> actionTitle;

    friend bool operator==(const BreakdownSegment &, const BreakdownSegment &) = default;
};

/// Where the space on the start-up disk went. The segments, largest first, add up to the used space.
struct DiskBreakdown {
    std::string volumeName;
    std::int64_t total = 0;
    std::int64_t free = 0;
    std::int64_t purgeable = 0; ///< the estimate as it is, not capped by what is left to explain
    std::vector<BreakdownSegment> segments;
    std::vector<LocalSnapshot> snapshots;
    bool hasScan = false;
    bool scanIsPartial = false; ///< the scan was stopped, so most of the unexplained space was not scanned
    bool fromAPFS = false;
    std::int64_t overcount = 0; ///< by how much the measured folders exceed what the disk uses
    std::int64_t reserved = 0;  ///< what the file system keeps back for the administrator: neither used nor free
    SystemKind system = SystemKind::mac; ///< whose words the notes are written in

    /// The bytes of the hidden segment, 0 without one.
    [[nodiscard]] std::int64_t hidden() const;
    /// `total` - `free`.
    [[nodiscard]] std::int64_t used() const;
    /// How much of the used space is explained, in whole percent; 0 when nothing is used.
    [[nodiscard]] int explainedPercentage() const;
    /// What is to be known of the figures, each in a sentence or two.
    [[nodiscard]] std::vector<std::string> footnotes() const;

    friend bool operator==(const DiskBreakdown &, const DiskBreakdown &) = default;
};

} // namespace corvane
