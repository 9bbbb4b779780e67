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

/// Paths (bytes) to the size that was shown when each was selected.
using Selection = std::map<std::string, std::int64_t, std::less<>>;

/// What was at a path when it was selected.
struct SeenItem {
    ItemIdentity identity; ///< not known where nothing could be seen
    bool isInTrash = false;
};
using SeenItems = std::map<std::string, SeenItem>;

/// The selection without every entry that has an ancestor folder in it: what would really be removed.
[[nodiscard]] Selection effectiveSelection(const Selection &selection);

/// The entries of an effective selection, largest first, then by path.
[[nodiscard]] std::vector<SelectedEntry> selectedEntries(const Selection &effective);

/// The sum of the sizes.
[[nodiscard]] std::int64_t totalSize(const Selection &effective);

/// Whether an ancestor folder of the path is in the selection.
[[nodiscard]] bool hasSelectedAncestor(const Selection &selection, std::string_view path);

/// The entries of the selection that are the item at the path or a folder around it, the innermost first.
[[nodiscard]] std::vector<std::string> entriesAround(const Selection &selection, std::string_view path);

/// Whether something that lies beneath the path is in the selection.
[[nodiscard]] bool hasSelectedInside(const Selection &selection, std::string_view path);

/// Takes what of the selection lies beneath a path off the size of the item there, of which no less than 0 is left;
/// whether the size has changed.
bool takeInside(const Selection &gone, std::string_view path, std::int64_t &size);

/// Whether the path is in the selection or lies inside a selected folder.
[[nodiscard]] bool isCovered(const Selection &selection, std::string_view path);

} // namespace corvane
