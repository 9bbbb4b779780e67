#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <span>
#include <string_view>
#include <tuple>
#include <vector>

#include "cleanup/admin_command.h"
#include "cleanup/cleanup_catalog.h"
#include "core/dev_junk_item.h"

namespace corvane {

/// One row of the cleanup list: what it stands for, and its figures.
struct CleanupRow {
    enum class Kind : std::uint8_t {
        header,   ///< opens a section
        card,     ///< a location
        entry,    ///< one of the largest items in the location above it
        more,     ///< how many entries are not listed
        missing,  ///< there is no such location
        reveal,   ///< leads to the location above it
        prompt,   ///< there is no scan to find build folders in
        partial,  ///< the scan was stopped, so build folders may be missing
        none,     ///< the scan found no build folders
        artifact, ///< a build folder
        folded,   ///< the locations of its group that hold nothing; they follow it when it is unfolded
        command,  ///< what the user can run to free more
    };

    Kind kind = Kind::header;
    int section = 0;                        ///< its place among the sections
    const CleanupDefinition *def = nullptr; ///< of static storage; of a card and the rows that it opens
    CleanupEntry entry = {};
    DevJunkItem artifact = {};
    AdminCommand command = {};
    std::int64_t size = 0;      ///< bytes of all that it stands for; 0 without a measurement
    std::size_t count = 0;      ///< the entries of a card; what a `more` or `folded` row stands for
    std::size_t shownCount = 0; ///< of a `folded` row: the locations above it
    bool isMeasured = false;    ///< what the size is of
    bool isReadable = true;     ///< of a card

    /// What it stands for, whatever its figures are by now.
    using Key = std::tuple<Kind, int, const void *, std::string_view>;
    [[nodiscard]] Key key() const;

    friend bool operator==(const CleanupRow &, const CleanupRow &) = default;
    /// Whether it is one of the rows that a card shows when it is expanded.
    [[nodiscard]] bool isInsideCard() const;
    /// Whether it stands for one file or folder.
    [[nodiscard]] bool isItem() const { return kind == Kind::entry || kind == Kind::artifact; }
    /// Whether the keyboard stops at it.
    [[nodiscard]] bool isStop() const;
};

/// The rows of the cleanup list.
struct CleanupRows {
    /// An expanded card lists no more than its largest.
    static constexpr std::size_t entriesListed = 80;
    /// After the groups of the catalogue stands the section of the build folders.
    static constexpr int artifactSection = static_cast<int>(allCleanupGroups.size());

    /// The last section, where there are commands.
    static constexpr int commandSection = artifactSection + 1;

    using Expanded = std::function<bool(const CleanupDefinition &)>;
    using Unfolded = std::function<bool(int section)>;

    /// The scan that the build folders are from.
    enum class Scan : std::uint8_t { none, stopped, finished };

    /// What is referred to outlives the call.
    struct Contents {
        const CleanupTable &table; ///< of the system that the rest is of
        std::span<const CleanupItem> items;
        Expanded isExpanded;
        Unfolded isUnfolded;
        Scan scan = Scan::none;
        std::span<const DevJunkItem> artifacts;
        std::span<const AdminCommand> commands;
    };

    /// The groups with their cards, largest first, then the build folders and the commands. Without items the cards
    /// stand in the catalogue's own order. The way to a location is only offered where it is known to exist. Where the
    /// system folds empty locations, one row stands for those of a group, and they follow it once it is unfolded.
    [[nodiscard]] static std::vector<CleanupRow> make(const Contents &contents);
};

} // namespace corvane
