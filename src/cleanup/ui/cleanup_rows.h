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

/// One row of the cleanup list: its identity and figures.
struct CleanupRow {
    enum class Kind : std::uint8_t {
        header,   ///< starts a section
        card,     ///< a location
        entry,    ///< one of the largest items in the location above it
        more,     ///< says how many entries are not listed
        missing,  ///< the location does not exist
        reveal,   ///< reveals the location above it
        prompt,   ///< there is no scan with build folders
        partial,  ///< the scan was stopped, so build folders may be missing
        none,     ///< the scan found no build folders
        artifact, ///< a build folder
        folded,   ///< the empty locations of its group; they follow this row when expanded
        command,  ///< a command that the user can run to free more space
    };

    Kind kind = Kind::header;
    int section = 0;                        ///< index of the section
    const CleanupDefinition *def = nullptr; ///< static; set for cards and the rows inside them
    CleanupEntry entry = {};
    DevJunkItem artifact = {};
    AdminCommand command = {};
    std::int64_t size = 0;      ///< total in bytes; 0 without a measurement
    std::size_t count = 0;      ///< entries of a card, or of a `more` or `folded` row
    std::size_t shownCount = 0; ///< for a `folded` row: the number of locations above it
    bool isMeasured = false;    ///< whether the size has been measured
    bool isReadable = true;     ///< for cards

    /// The row's identity, independent of its figures.
    using Key = std::tuple<Kind, int, const void *, std::string_view>;
    [[nodiscard]] Key key() const;

    friend bool operator==(const CleanupRow &, const CleanupRow &) = default;
    /// Whether it is shown only while its card is expanded.
    [[nodiscard]] bool isInsideCard() const;
    /// Whether it stands for one file or folder.
    [[nodiscard]] bool isItem() const { return kind == Kind::entry || kind == Kind::artifact; }
    /// Whether the keyboard stops at the row.
    [[nodiscard]] bool isStop() const;
};

/// The rows of the cleanup list.
struct CleanupRows {
    /// The number of entries that an expanded card lists, the largest first.
    static constexpr std::size_t entriesListed = 80;
    /// The section of the build folders, after the catalogue's groups.
    static constexpr int artifactSection = static_cast<int>(allCleanupGroups.size());

    /// The last section, if there are commands.
    static constexpr int commandSection = artifactSection + 1;

    using Expanded = std::function<bool(const CleanupDefinition &)>;
    using Unfolded = std::function<bool(int section)>;

    /// The scan that provides the build folders.
    enum class Scan : std::uint8_t { none, stopped, finished };

    /// All references must outlive the call.
    struct Contents {
        const CleanupTable &table; ///< of the same system as the rest
        std::span<const CleanupItem> items;
        Expanded isExpanded;
        Unfolded isUnfolded;
        Scan scan = Scan::none;
        std::span<const DevJunkItem> artifacts;
        std::span<const AdminCommand> commands;
    };

    /// The groups with their cards, largest first, then the build folders and the commands. Without items the cards are
    /// in the catalogue's order. A location can be revealed only if it is known to exist. If the system folds empty
    /// locations, one row per group stands for them, and they follow it when expanded.
    [[nodiscard]] static std::vector<CleanupRow> make(const Contents &contents);
};

} // namespace corvane
