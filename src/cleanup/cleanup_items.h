#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "cleanup/cleanup_catalog.h"
#include "core/selected_entry.h"

namespace corvane {

// Queries on the measured catalogue, in the order of `CleanupCatalog::measureAll`.

/// All items, common and system-specific ones together, largest total first.
[[nodiscard]] std::vector<const CleanupItem *> largestFirst(std::span<const CleanupItem> items);

/// How a row of the catalogue is shown.
enum class Showing {
    shown,
    folded, ///< empty: counted with others in one line
    hidden, ///< empty, and its program does not exist on this system
};
[[nodiscard]] Showing showingOf(const CleanupItem &item, const CleanupTable &table);

/// "12 more places hold nothing"; without "more" if no row is shown above.
[[nodiscard]] std::string foldedText(std::size_t count, std::size_t shownCount);

/// Subtracts removed entries from the items until the next measurement; returns whether a figure has changed.
bool takeRemoved(std::vector<CleanupItem> &items, std::span<const SelectedEntry> removed);

/// The total of the items that can be cleared without a second look.
[[nodiscard]] std::int64_t safeTotal(std::span<const CleanupItem> items);

/// The entries of those items, in the order of the items.
[[nodiscard]] std::vector<SelectedEntry> safeEntries(std::span<const CleanupItem> items);

/// The entries of all items, in the same order.
[[nodiscard]] std::vector<SelectedEntry> allEntries(std::span<const CleanupItem> items);

} // namespace corvane
