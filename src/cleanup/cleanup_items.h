#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "cleanup/cleanup_catalog.h"
#include "core/selected_entry.h"

namespace corvane {

// What is asked of the measured catalogue, in the order of `CleanupCatalog::measureAll`.

/// All items, those of every system and the system's own together, the largest total first.
[[nodiscard]] std::vector<const CleanupItem *> largestFirst(std::span<const CleanupItem> items);

/// How a row of the catalogue is shown.
enum class Showing {
    shown,
    folded, ///< it holds nothing: counted with others in one line
    hidden, ///< the same, and its program does not exist on this system
};
[[nodiscard]] Showing showingOf(const CleanupItem &item, const CleanupTable &table);

/// "12 more places hold nothing"; without "more" where no row is shown above that line.
[[nodiscard]] std::string foldedText(std::size_t count, std::size_t shownCount);

/// Takes what was removed out of the items, until they are measured again; whether a figure has changed.
bool takeRemoved(std::vector<CleanupItem> &items, std::span<const SelectedEntry> removed);

/// What the items come to that may be cleared without a second look.
[[nodiscard]] std::int64_t safeTotal(std::span<const CleanupItem> items);

/// The entries of those items, in the order of the items.
[[nodiscard]] std::vector<SelectedEntry> safeEntries(std::span<const CleanupItem> items);

/// The entries of all items, in the same order.
[[nodiscard]] std::vector<SelectedEntry> allEntries(std::span<const CleanupItem> items);

} // namespace corvane
