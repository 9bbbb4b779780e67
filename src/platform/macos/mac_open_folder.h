#pragma once

#include "platform/file_descriptor.h"
#include "platform/file_system.h"
#include "platform/package_extension_cache.h"

namespace corvane {

/// A folder held by its descriptor. Lists hundreds of entries per system call.
class MacOpenFolder final : public OpenFolder {
public:
    /// Opens `name` relative to the folder `base` (or AT_FDCWD) with additional open flags. `packages` must outlive the
    /// folder.
    [[nodiscard]] static Expected<std::unique_ptr<OpenFolder>> open(int base, const std::string &name, int flags,
                                                                    PackageExtensionCache &packages);

    [[nodiscard]] Expected<void> list(const EntrySink &sink) override;
    [[nodiscard]] Expected<std::unique_ptr<OpenFolder>> openChild(const std::string &name) override;
    [[nodiscard]] Expected<std::unique_ptr<OpenFolder>> openParent() override;
    [[nodiscard]] FolderIdentity identity() const override { return m_identity; }
    [[nodiscard]] Time modified() const override { return m_modified; }
    [[nodiscard]] std::int64_t allocated() const override { return m_allocated; }
    [[nodiscard]] int descriptor() const override { return m_descriptor.number(); }

private:
    MacOpenFolder(FileDescriptor descriptor, PackageExtensionCache &packages);

    [[nodiscard]] int listInBulk(const EntrySink &sink) const;
    [[nodiscard]] int listOneByOne(const EntrySink &sink) const;
    [[nodiscard]] bool completeFromStatus(const std::string &name, DirectoryEntry &entry) const;

    const FileDescriptor m_descriptor;
    PackageExtensionCache &m_packages;
    FolderIdentity m_identity;
    Time m_modified = distantPast;
    std::int64_t m_allocated = 0;
};

} // namespace corvane
