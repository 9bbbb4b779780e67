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

/// A name and its size in bytes; identified by the name (bytes).
struct NamedSize {
    std::string name;
    std::int64_t size = 0;

    friend bool operator==(const NamedSize &, const NamedSize &) = default;
};

/// The facts about the last finished scan that the breakdown needs.
struct ScanContext {
    std::optional<std::string> rootPath; ///< bytes; absent before the first scan
    std::int64_t rootSize = 0;
    std::int64_t systemDirSize = 0;     ///< for a whole-disk scan, the part that belongs to the system volume
    std::vector<NamedSize> topChildren; ///< largest first; without the system folder for a whole-disk scan
    std::int64_t unreadableCount = 0;   ///< folders of the tree that could not be read
    std::int64_t deniedCount = 0;       ///< further ones, which are missing from the tree
    bool isPartial = false;             ///< the scan was stopped: the sizes cover only what it had reached
    bool hasFullDiskAccess = false;

    /// The facts in a scanned tree; `unreadableCount` comes from its summary. The caller sets the facts about the walk.
    [[nodiscard]] static ScanContext of(const FileNode &root, std::int64_t unreadableCount);
};

/// The action of a segment's button; carried out by the screens.
struct BreakdownAction {
    enum class Kind { reveal, openMap, scanHome, fullDiskAccess };

    Kind kind = Kind::reveal;
    std::string path; ///< only for `reveal`

    friend bool operator==(const BreakdownAction &, const BreakdownAction &) = default;
};

/// One explained part of the disk; identified by `id`, which is stable across refreshes.
struct BreakdownSegment {
    enum class Kind { system, support, vm, scanned, measured, purgeable, hidden, otherVolume };

    std::string id;
    Kind kind = Kind::system;
    std::string title;
    std::string detail;
    std::string symbol;
    Color color;
    std::int64_t size = 0;
    std::vector<NamedSize> children; ///< the largest items inside, if known
    std::optional<BreakdownAction> action;
    std::optional<std::string> actionTitle;

    friend bool operator==(const BreakdownSegment &, const BreakdownSegment &) = default;
};

/// The use of the startup disk's space. The segments, largest first, add up to the used space.
struct DiskBreakdown {
    std::string volumeName;
    std::int64_t total = 0;
    std::int64_t free = 0;
    std::int64_t purgeable = 0; ///< the system's estimate, not capped by the unexplained space
    std::vector<BreakdownSegment> segments;
    std::vector<LocalSnapshot> snapshots;
    bool hasScan = false;
    bool scanIsPartial = false; ///< the scan was stopped, so most of the unexplained space was not scanned
    bool fromAPFS = false;
    std::int64_t overcount = 0;          ///< by how much the measured folders exceed the used space
    std::int64_t reserved = 0;           ///< reserved by the file system for root: neither used nor free
    SystemKind system = SystemKind::mac; ///< determines the texts of the notes

    /// The bytes of the hidden segment; 0 without one.
    [[nodiscard]] std::int64_t hidden() const;
    /// `total` - `free`.
    [[nodiscard]] std::int64_t used() const;
    /// The explained share of the used space, in whole percent; 0 if nothing is used.
    [[nodiscard]] int explainedPercentage() const;
    /// Notes about the figures, one or two sentences each.
    [[nodiscard]] std::vector<std::string> footnotes() const;

    friend bool operator==(const DiskBreakdown &, const DiskBreakdown &) = default;
};

} // namespace corvane
