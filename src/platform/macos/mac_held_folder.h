#pragma once

#include "platform/package_extension_cache.h"
#include "platform/posix/posix_held_folder.h"

namespace corvane {

/// Whether the Finder shows the folder at that path as a package.
[[nodiscard]] bool isShownAsPackage(const std::string &path);

/// A held folder on a Mac, where the Finder's rule decides which folders are packages.
class MacHeldFolder final : public PosixHeldFolder {
public:
    /// As `FileSystem::holdFolder`. `packages` must outlive the folder.
    [[nodiscard]] static Expected<std::unique_ptr<HeldFolder>> hold(const std::string &path,
                                                                    PackageExtensionCache &packages);

    MacHeldFolder(FileDescriptor descriptor, std::string path, PackageExtensionCache &packages)
        : PosixHeldFolder(std::move(descriptor), std::move(path)), m_packages(packages)
    {
    }

private:
    [[nodiscard]] bool isPackage(const std::string &name) const override;
    [[nodiscard]] Expected<std::unique_ptr<OpenFolder>> openInside(int folder, const std::string &name) const override;

    PackageExtensionCache &m_packages;
};

} // namespace corvane
