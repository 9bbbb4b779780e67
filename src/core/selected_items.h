#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "core/installed_tree.h"
#include "core/path_guard.h"
#include "core/removal.h"
#include "core/selected_entry.h"
#include "core/selection.h"
#include "platform/host.h"

namespace corvane {

/// The items that the user has selected for removal, and what was at each path at that moment. Protected items are
/// never added. Not thread-safe.
class SelectedItems {
public:
    /// `locations` and the objects that `host` refers to must outlive this one.
    SelectedItems(const Host &host, const ProtectedLocations &locations) : m_host(host), m_locations(locations) {}

    [[nodiscard]] const Selection &sizes() const { return m_sizes; }
    [[nodiscard]] const SeenItems &seen() const { return m_seen; }
    /// Entries of the effective selection that are in the Trash: moving them there would delete them for good.
    [[nodiscard]] std::vector<SelectedEntry> inTrash() const;

    // Each of these returns whether the selection has changed.

    /// Adds entries, or updates the size of those already selected. If `tree` shows an item, the selection refers to
    /// the item as shown there, a file or a folder. Accesses the disk.
    bool add(std::span<const SelectedEntry> entries, const InstalledTree &tree);
    bool remove(std::span<const SelectedEntry> entries);
    bool clear();
    /// Updates the size of the selected ones among the entries.
    bool resize(std::span<const SelectedEntry> entries);
    /// The same for every size that the tree shows.
    bool resizeFrom(const InstalledTree &tree);

    /// The result of a removal for the selection.
    struct Settlement {
        std::vector<SelectedEntry> gone; ///< removed, or already gone
        bool hasChanged = false;         ///< whether the selection has changed
    };
    /// Drops what a removal has removed. A partly removed item stays selected with its remaining size.
    Settlement settle(const RemovalOutcome &outcome);

private:
    bool forgetWithContents(const std::string &path);

    const Host m_host;
    const ProtectedLocations &m_locations;
    Selection m_sizes;
    SeenItems m_seen; // for the same paths
};

} // namespace corvane
