#pragma once

#include <memory>
#include <string>
#include <vector>

#include "platform/error.h"
#include "platform/held_folder.h"

namespace corvane {

/// The operation of an `Error` of moving an item to the Trash.
inline constexpr const char *moveToTrash = "move to Trash";

/// An item after its move to the Trash: its folder there, its name and its identity. The folder is null if unknown.
struct TrashedItem {
    std::shared_ptr<HeldFolder> folder;
    std::string name;
    ItemIdentity identity;
};

/// The system's ways to move an item to where the user can restore it. They never delete. Called for one item at a time
/// from a background thread.
class Trash {
public:
    virtual ~Trash() = default;

    /// Moves the item itself (a link, never its target) to the Trash of its volume. If the system only takes a path,
    /// another item may have that path by then: the caller must compare the result with the intended item.
    [[nodiscard]] virtual Expected<TrashedItem> trashItem(HeldFolder &folder, const std::string &name) = 0;

    /// The workspace's method for application bundles; blocks until it has finished.
    [[nodiscard]] virtual Expected<TrashedItem> recycle(HeldFolder &folder, const std::string &name) = 0;

    /// Asks the file manager through its scripting interface; blocks until it replies.
    [[nodiscard]] virtual Expected<void> trashThroughFinder(const std::string &path) = 0;

    /// Call when a request is finished or abandoned: releases what was kept for its further items.
    virtual void endRequest() {}

    /// Removes the Trash's record of an item that had that name in that folder. Does nothing if the folder is not in
    /// the Trash, or while the item is there.
    virtual void forget(HeldFolder &folder, const std::string &name) = 0;

    /// The folders that contain trashed items: anything inside one of them is already in the Trash.
    [[nodiscard]] virtual std::vector<std::string> trashFolders() = 0;
};

} // namespace corvane
