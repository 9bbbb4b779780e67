#pragma once

#include <functional>
#include <memory>
#include <string>
#include <utility>

#include "platform/file_descriptor.h"
#include "platform/held_folder.h"
#include "platform/posix/item_removal.h"

namespace corvane {

/// A folder held by its file number. How folders inside it are opened, and what the system presents as one document,
/// is the system's.
class PosixHeldFolder : public HeldFolder {
public:
    /// Of a folder that is open; `path` has no links on its way.
    PosixHeldFolder(FileDescriptor descriptor, std::string path)
        : m_descriptor(std::move(descriptor)), m_path(std::move(path))
    {
    }

    [[nodiscard]] const std::string &path() const final { return m_path; }
    [[nodiscard]] FolderIdentity identity() const final;
    [[nodiscard]] Expected<ItemFacts> facts(const std::string &name) final;
    [[nodiscard]] Expected<void> removeItem(const std::string &name, const ItemIdentity &expected) final;
    [[nodiscard]] Expected<void> moveItem(const std::string &name, HeldFolder &target,
                                          const std::string &newName) final;
    [[nodiscard]] int descriptor() const final { return m_descriptor.number(); }

protected:
    /// Whether the folder of that name directly inside is presented as one document.
    [[nodiscard]] virtual bool isPackage(const std::string &name) const = 0;

    /// Opens the folder of that name inside the one with that number, never through a link.
    [[nodiscard]] virtual Expected<std::unique_ptr<OpenFolder>> openInside(int folder,
                                                                           const std::string &name) const = 0;

    [[nodiscard]] virtual ItemRemoval::ReadOnlyFolders readOnlyFolders() const
    {
        return ItemRemoval::ReadOnlyFolders::resist;
    }

private:
    const FileDescriptor m_descriptor;
    const std::string m_path;
};

/// A folder that was opened by its path, and that path without links.
struct ResolvedFolder {
    FileDescriptor descriptor;
    std::string path;
};

/// Resolves the path and opens what it leads to, without following a link any more: the folder is the one that has the
/// resolved path at that moment. `open` follows no link on the way; it gives none, with `errno` set, where it fails.
[[nodiscard]] Expected<ResolvedFolder> openResolved(const std::string &path,
                                                    const std::function<FileDescriptor(const std::string &)> &open);

} // namespace corvane
