#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "core/selected_entry.h"
#include "platform/file_system.h"

namespace corvane {

/// Maps paths (bytes) to the size that was shown when each was selected.
using Selection = std::map<std::string, std::int64_t, std::less<>>;

/// What was at a path when it was selected.
struct SeenItem {
    ItemIdentity identity; ///< unknown if nothing could be read
    bool isInTrash = false;
};
using SeenItems = std::map<std::string, SeenItem>;

/// The selection without entries that have an ancestor folder in it: what would really be removed.
[[nodiscard]] Selection effectiveSelection(const Selection &selection);

/// The entries of an effective selection, largest first, then by path.
[[nodiscard]] std::vector<SelectedEntry> selectedEntries(const Selection &effective);

/// The sum of the sizes.
[[nodiscard]] std::int64_t totalSize(const Selection &effective);

/// Whether an ancestor folder of the path is in the selection.
[[nodiscard]] bool hasSelectedAncestor(const Selection &selection, std::string_view path);

/// The entries that are the item at the path or one of its ancestors, innermost first.
[[nodiscard]] std::vector<std::string> entriesAround(const Selection &selection, std::string_view path);

/// Whether the selection contains something inside the path.
[[nodiscard]] bool hasSelectedInside(const Selection &selection, std::string_view path);

/// Subtracts the sizes of the entries inside a path from the size of the item there, not below 0; returns whether the
/// size has changed.
bool takeInside(const Selection &gone, std::string_view path, std::int64_t &size);

/// Whether the path is in the selection or lies inside a selected folder.
[[nodiscard]] bool isCovered(const Selection &selection, std::string_view path);

} // namespace corvane
