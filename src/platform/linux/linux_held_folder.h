#pragma once

#include "platform/file_descriptor.h"
#include "platform/held_folder.h"

namespace corvane {

/// A folder held by its file number.
class LinuxHeldFolder final : public HeldFolder {
public:
    /// Resolves the path and opens what it leads to, without following a link any more: the folder is the one that
    /// has the resolved path at that moment.
    [[nodiscard]] static Expected<std::unique_ptr<HeldFolder>> hold(const std::string &path);

    /// A folder that is open already; `path` has no links on its way.
    LinuxHeldFolder(FileDescriptor descriptor, std::string path)
        : m_descriptor(std::move(descriptor)), m_path(std::move(path))
    {
    }

    [[nodiscard]] const std::string &path() const override { return m_path; }
    [[nodiscard]] FolderIdentity identity() const override;
    [[nodiscard]] Expected<ItemFacts> facts(const std::string &name) override;
    [[nodiscard]] Expected<void> removeItem(const std::string &name, const ItemIdentity &expected) override;
    [[nodiscard]] Expected<void> moveItem(const std::string &name, HeldFolder &target,
                                          const std::string &newName) override;
    [[nodiscard]] int descriptor() const override { return m_descriptor.number(); }

private:
    const FileDescriptor m_descriptor;
    const std::string m_path;
};

} // namespace corvane
