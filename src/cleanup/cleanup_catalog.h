#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "core/file_node.h"
#include "core/stop_flag.h"
#include "platform/host.h"

namespace corvane {

/// `safe`: its owner makes or downloads the data again. `review`: removal loses something that should be
/// looked at first.
enum class CleanupRisk { safe, review };

/// The sections of the catalogue, in this order.
enum class CleanupGroup { system, developer, personal };

inline constexpr std::array<CleanupGroup, 3> allCleanupGroups{CleanupGroup::system, CleanupGroup::developer,
                                                              CleanupGroup::personal};

/// The names of the cases as text.
[[nodiscard]] std::string_view rawValue(CleanupRisk risk);
[[nodiscard]] std::string_view rawValue(CleanupGroup group);

/// The system colours that the catalogue's icons take.
enum class CleanupTint { blue, gray, cyan, red, indigo, purple, teal, green, mint, orange };

/// One well-known folder of the catalogue.
struct CleanupDefinition {
    std::string_view id;
    std::string_view title;
    std::string_view detail;
    std::string_view symbol;
    CleanupTint tint;
    CleanupRisk risk;
    CleanupGroup group;
    std::string_view relativePath; ///< beneath the home folder, without a leading slash
};

/// One direct child of a catalogue folder, identified by its path (bytes).
struct CleanupEntry {
    std::string path;
    std::int64_t size = 0; ///< allocated bytes, at least 1
    FileNode::Kind kind = FileNode::Kind::file;

    friend bool operator==(const CleanupEntry &, const CleanupEntry &) = default;
};

/// One measured folder of the catalogue.
struct CleanupItem {
    const CleanupDefinition *def = nullptr; ///< of static storage
    std::vector<CleanupEntry> entries;      ///< largest first
    bool accessible = true;                 ///< false when the folder is there but cannot be listed
    bool exists = true;                     ///< false when there is no such folder, or its place is refused
    std::string path = {};                  ///< of the folder (bytes); empty where its place is refused

    /// The sum of the entries.
    [[nodiscard]] std::int64_t total() const;

    friend bool operator==(const CleanupItem &, const CleanupItem &) = default;
};

/// The fixed catalogue of folders that hold data which can be made again, and the one way to measure anything
/// outside a scanned tree. Every call may be made from any thread and blocks.
struct CleanupCatalog {
    static const std::array<CleanupDefinition, 18> definitions;

    /// Names that are never listed as entries.
    static constexpr std::array<std::string_view, 2> ignoredNames{".DS_Store", ".localized"};

    /// All 18 folders, measured at once, largest total first. Once stopped, what has been measured so far.
    [[nodiscard]] static std::vector<CleanupItem> measureAll(FileSystem &files = systemHost().files,
                                                             const StopFlag &stop = neverStopped);

    /// One folder. A missing one, and one whose place is refused (`PlaceRule`), is an empty item; one that cannot be
    /// listed is not `accessible`.
    [[nodiscard]] static CleanupItem measure(const CleanupDefinition &definition,
                                             FileSystem &files = systemHost().files,
                                             const StopFlag &stop = neverStopped);
};

} // namespace corvane
