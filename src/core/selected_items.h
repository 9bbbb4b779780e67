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

/// What the user has chosen for removal, and beside it what was at each path at that moment. Nothing protected gets
/// in. Not for two threads at once.
class SelectedItems {
public:
    /// What `host` refers to, and `locations`, must outlive the object.
    SelectedItems(const Host &host, const ProtectedLocations &locations) : m_host(host), m_locations(locations) {}

    [[nodiscard]] const Selection &sizes() const { return m_sizes; }
    [[nodiscard]] const SeenItems &seen() const { return m_seen; }
    /// Those of the effective selection that lie in the Trash: moving them there deletes them for good.
    [[nodiscard]] std::vector<SelectedEntry> inTrash() const;

    // Each of these answers whether the selection has changed.

    /// Adds entries, or gives those that are selected already their new size. Where `tree` shows an item, what is
    /// chosen is what it shows there, a file or a folder. Asks the disk.
    bool add(std::span<const SelectedEntry> entries, const InstalledTree &tree);
    bool remove(std::span<const SelectedEntry> entries);
    bool clear();
    /// Gives the selected ones among the entries their new size.
    bool resize(std::span<const SelectedEntry> entries);
    /// The same with every size that the tree shows.
    bool resizeFrom(const InstalledTree &tree);

    /// What became of a removal's entries.
    struct Settlement {
        std::vector<SelectedEntry> gone; ///< what was removed, and what was gone before
        bool hasChanged = false;         ///< the selection
    };
    /// Forgets what a removal has taken away. What is there only in part stays selected, with the rest of its size.
    Settlement settle(const RemovalOutcome &outcome);

private:
    bool forgetWithContents(const std::string &path);

    const Host m_host;
    const ProtectedLocations &m_locations;
    Selection m_sizes;
    SeenItems m_seen; // of the same paths
};

} // namespace corvane
