#pragma once

#include <functional>
#include <memory>
#include <string>
#include <utility>

#include "platform/file_descriptor.h"
#include "platform/held_folder.h"
#include "platform/posix/item_removal.h"

namespace corvane {

/// A folder held by its descriptor. Derived classes open folders inside it and detect packages.
class PosixHeldFolder : public HeldFolder {
public:
    /// Takes an open folder; `path` has all links resolved.
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

    /// Opens the folder of that name inside the one with that descriptor, never through a link.
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

/// An open folder and its path with links resolved.
struct ResolvedFolder {
    FileDescriptor descriptor;
    std::string path;
};

/// Resolves the path and opens the result without following further links: the folder returned had the resolved path at
/// that moment. `open` must not follow links; it returns an invalid descriptor, with `errno` set, on failure.
[[nodiscard]] Expected<ResolvedFolder> openResolved(const std::string &path,
                                                    const std::function<FileDescriptor(const std::string &)> &open);

} // namespace corvane
