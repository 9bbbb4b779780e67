#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "core/file_node.h"
#include "core/stop_flag.h"
#include "core/systems/cleanup_table.h"
#include "platform/host.h"

namespace corvane {

/// The names of the cases as text.
[[nodiscard]] std::string_view rawValue(CleanupRisk risk);
[[nodiscard]] std::string_view rawValue(CleanupGroup group);

/// One direct child of a catalogue folder, identified by its path (bytes). If a child contains a folder of another row,
/// its other contents are separate entries.
struct CleanupEntry {
    std::string path;
    std::int64_t size = 0; ///< allocated bytes, at least 1
    FileNode::Kind kind = FileNode::Kind::file;
    std::string name = {}; ///< display name, if it differs from the end of the path

    friend bool operator==(const CleanupEntry &, const CleanupEntry &) = default;
};

/// One measured row of the catalogue.
struct CleanupItem {
    const CleanupDefinition *def = nullptr; ///< static storage
    std::vector<CleanupEntry> entries;      ///< largest first
    bool accessible = true;                 ///< false if the folder exists but cannot be listed
    bool exists = true;     ///< false if there is no such folder, or its place is refused or counts in another row
    std::string path = {};  ///< of the (first) folder, bytes; empty if its place is refused
    std::string owner = {}; ///< text of `SystemWords::belongsTo` for an inaccessible one, if there is any

    /// The sum of the entries.
    [[nodiscard]] std::int64_t total() const;

    friend bool operator==(const CleanupItem &, const CleanupItem &) = default;
};

/// The fixed catalogue of folders with data that can be recreated. Every call may be made from any thread and blocks.
struct CleanupCatalog {
    /// The rows common to all systems; a system may have more (`CleanupTable`).
    static const std::array<CleanupDefinition, 18> definitions;

    /// Names that are never listed as entries.
    static constexpr std::array<std::string_view, 2> ignoredNames{".DS_Store", ".localized"};

    /// The 18 common rows, measured in parallel, largest total first, then those of the root's system in the same
    /// order. When stopped, what has been measured so far.
    [[nodiscard]] static std::vector<CleanupItem> measureAll(FileSystem &files = systemHost().files,
                                                             const StopFlag &stop = neverStopped);

    /// One row for the root's system. A missing folder, or one whose place is refused (`PlaceRule`), yields an empty
    /// item; one that cannot be listed is not `accessible`.
    [[nodiscard]] static CleanupItem measure(const CleanupDefinition &definition,
                                             FileSystem &files = systemHost().files,
                                             const StopFlag &stop = neverStopped);

    /// Whether it is one of the 18 common rows.
    [[nodiscard]] static bool isOfEverySystem(const CleanupItem &item);

    /// Sorts items in the order of `measureAll`.
    static void sort(std::vector<CleanupItem> &items);
};

} // namespace corvane
