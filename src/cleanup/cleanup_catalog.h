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

/// One direct child of a catalogue folder, identified by its path (bytes). Of a child that holds a folder of another
/// row what lies beside that is an entry each.
struct CleanupEntry {
    std::string path;
    std::int64_t size = 0; ///< allocated bytes, at least 1
    FileNode::Kind kind = FileNode::Kind::file;
    std::string name = {}; ///< what it is called where that is not the end of its path

    friend bool operator==(const CleanupEntry &, const CleanupEntry &) = default;
};

/// One measured row of the catalogue.
struct CleanupItem {
    const CleanupDefinition *def = nullptr; ///< of static storage
    std::vector<CleanupEntry> entries;      ///< largest first
    bool accessible = true;                 ///< false when the folder is there but cannot be listed
    bool exists = true;     ///< false when there is no such folder, its place is refused or counts in another row
    std::string path = {};  ///< of the folder, the first of several (bytes); empty where its place is refused
    std::string owner = {}; ///< `SystemWords::belongsTo` of one that is not accessible, where it tells something

    /// The sum of the entries.
    [[nodiscard]] std::int64_t total() const;

    friend bool operator==(const CleanupItem &, const CleanupItem &) = default;
};

/// The fixed catalogue of folders that hold data which can be made again. Every call may be made from any thread and
/// blocks.
struct CleanupCatalog {
    /// The rows of every system; a system may have more (`CleanupTable`).
    static const std::array<CleanupDefinition, 18> definitions;

    /// Names that are never listed as entries.
    static constexpr std::array<std::string_view, 2> ignoredNames{".DS_Store", ".localized"};

    /// The 18 rows of every system, measured at once, largest total first, then those of the system that the root
    /// describes, in the same order. Once stopped, what has been measured so far.
    [[nodiscard]] static std::vector<CleanupItem> measureAll(FileSystem &files = systemHost().files,
                                                             const StopFlag &stop = neverStopped);

    /// One row of the system that the root describes. A missing one, and one whose place is refused (`PlaceRule`), is
    /// an empty item; one that cannot be listed is not `accessible`.
    [[nodiscard]] static CleanupItem measure(const CleanupDefinition &definition,
                                             FileSystem &files = systemHost().files,
                                             const StopFlag &stop = neverStopped);

    /// Whether it is one of the 18 rows that every system has.
    [[nodiscard]] static bool isOfEverySystem(const CleanupItem &item);

    /// Sorts items as `measureAll` does.
    static void sort(std::vector<CleanupItem> &items);
};

} // namespace corvane
