#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <vector>

#include "core/selected_entry.h"
#include "platform/file_system.h"

namespace corvane {

/// Paths (bytes) to the size that was shown when each was selected.
using Selection = std::map<std::string, std::int64_t>;

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
[[nodiscard]] bool hasSelectedAncestor(const Selection &selection, const std::string &path);

} // namespace corvane
