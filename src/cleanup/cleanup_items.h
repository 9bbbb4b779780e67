#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "cleanup/cleanup_catalog.h"
#include "core/selected_entry.h"

namespace corvane {

// What is asked of the measured catalogue, a list of items with the largest total first.

/// Takes what was removed out of the items, until they are measured again; whether a figure has changed.
bool takeRemoved(std::vector<CleanupItem> &items, std::span<const SelectedEntry> removed);

/// What the items come to that may be cleared without a second look.
[[nodiscard]] std::int64_t safeTotal(std::span<const CleanupItem> items);

/// The entries of those items, in the order of the items.
[[nodiscard]] std::vector<SelectedEntry> safeEntries(std::span<const CleanupItem> items);

/// The entries of all items, in the same order.
[[nodiscard]] std::vector<SelectedEntry> allEntries(std::span<const CleanupItem> items);

} // namespace corvane
