#pragma once

#include <string>
#include <vector>

#include "platform/error.h"

namespace corvane {

/// The ways in which the system puts an item where the user can take it back from. They never delete.
/// Called one item at a time from a background thread.
class Trash {
public:
    virtual ~Trash() = default;

    /// Moves the item itself (a link, never its target) to the Trash.
    [[nodiscard]] virtual Expected<void> trashItem(const std::string &path) = 0;

    /// The workspace's own way for application bundles; blocks until it has finished.
    [[nodiscard]] virtual Expected<void> recycle(const std::string &path) = 0;

    /// Asks the file manager to do it, by its scripting interface; blocks until it has answered.
    [[nodiscard]] virtual Expected<void> deleteThroughFinder(const std::string &path) = 0;

    /// Drops what the Trash has noted of an item that lay in it and has been erased by the path given, which has no
    /// links on its way. Does nothing for any other path, nor while the item is there.
    virtual void forget(const std::string &path) = 0;

    /// The folders in which trashed items lie: what is inside one of them is in the Trash already.
    [[nodiscard]] virtual std::vector<std::string> trashFolders() = 0;
};

} // namespace corvane
