#pragma once

#include <functional>
#include <memory>
#include <string>

#include "platform/file_system.h"

namespace corvane {

/// Deletes one item of an open folder for good; one thread.
class ItemRemoval {
public:
    /// Opens the folder of that name inside the one with that number, never through a link.
    using OpenInside = std::function<Expected<std::unique_ptr<OpenFolder>>(int, const std::string &)>;

    /// What becomes of the user's own folders inside that may not be written to: they and their contents resist, or
    /// they are made writable first.
    enum class ReadOnlyFolders { resist, yield };

    /// `parent` is the number of the folder that contains the item and `parentPath` its path, for what is said of
    /// failures.
    ItemRemoval(int parent, const std::string &parentPath, OpenInside openInside,
                ReadOnlyFolders readOnlyFolders = ReadOnlyFolders::resist)
        : m_parent(parent),
          m_parentPath(parentPath),
          m_openInside(std::move(openInside)),
          m_readOnlyFolders(readOnlyFolders)
    {
    }

    /// As `HeldFolder::removeItem`.
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
