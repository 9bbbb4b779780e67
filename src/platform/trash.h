#pragma once

#include <memory>
#include <string>
#include <vector>

#include "platform/error.h"
#include "platform/held_folder.h"

namespace corvane {

/// What arrived in the Trash: the folder that it lies in now, its name there, and what it is. The folder is null where
/// the system does not tell.
struct TrashedItem {
    std::shared_ptr<HeldFolder> folder;
    std::string name;
    ItemIdentity identity;
};

/// The ways in which the system puts an item where the user can take it back from. They never delete.
/// Called one item at a time from a background thread.
class Trash {
public:
    virtual ~Trash() = default;

    /// Moves the item itself (a link, never its target) to the Trash of its volume. Where the system takes a path
    /// only, another item may have the path by then: the caller compares what arrived with what was meant.
    [[nodiscard]] virtual Expected<TrashedItem> trashItem(HeldFolder &folder, const std::string &name) = 0;

    /// The workspace's own way for application bundles; blocks until it has finished.
    [[nodiscard]] virtual Expected<TrashedItem> recycle(HeldFolder &folder, const std::string &name) = 0;

    /// Asks the file manager to do it, by its scripting interface; blocks until it has answered.
    [[nodiscard]] virtual Expected<void> deleteThroughFinder(const std::string &path) = 0;

    /// What was asked for at once is done, or given up: lets go of what was kept for further items of it.
    virtual void endRequest() {}

    /// Drops what the Trash has noted of an item that lay in that folder under that name. Does nothing for a folder
    /// that is not one of the Trash, nor while the item is there.
    virtual void forget(HeldFolder &folder, const std::string &name) = 0;

    /// The folders in which trashed items lie: what is inside one of them is in the Trash already.
    [[nodiscard]] virtual std::vector<std::string> trashFolders() = 0;
};

} // namespace corvane
