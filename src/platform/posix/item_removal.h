#pragma once

#include <functional>
#include <memory>
#include <string>

#include "platform/file_system.h"

namespace corvane {

/// Permanently deletes single items of an open folder. Implements `HeldFolder::removeItem` for all systems. Used by one
/// thread.
class ItemRemoval {
public:
    /// Opens the folder with that name inside the one with that descriptor. Must not follow a link.
    using OpenInside = std::function<Expected<std::unique_ptr<OpenFolder>>(int, const std::string &)>;

    /// What happens to folders inside that belong to the user and are not writable: deleting their contents fails, or
    /// they are made writable first.
    enum class ReadOnlyFolders { resist, yield };

    /// `parent` is the descriptor of the folder that contains the item, and `parentPath` its path, which is used in
    /// errors only. Both must outlive the object.
    ItemRemoval(int parent, const std::string &parentPath, OpenInside openInside,
                ReadOnlyFolders readOnlyFolders = ReadOnlyFolders::resist)
        : m_parent(parent),
          m_parentPath(parentPath),
          m_openInside(std::move(openInside)),
          m_readOnlyFolders(readOnlyFolders)
    {
    }

    /// As `HeldFolder::removeItem`; `name` must be the name of an item (`isItemName`). While a file is being deleted,
    /// it has a unique name that ends in ".corvane-" and 16 digits; if the program is killed then, it keeps that name.
    [[nodiscard]] Expected<void> remove(const std::string &name, const ItemIdentity &expected) const;

private:
    [[nodiscard]] Expected<void> removeFile(const std::string &name, const ItemIdentity &expected) const;
    [[nodiscard]] Expected<void> removeFolder(const std::string &name, const ItemIdentity &expected) const;
    [[nodiscard]] bool isStill(const std::string &name, const ItemIdentity &expected) const;

    const int m_parent;
    const std::string &m_parentPath;
    const OpenInside m_openInside;
    const ReadOnlyFolders m_readOnlyFolders;
};

} // namespace corvane
