#pragma once

#include "platform/posix/posix_held_folder.h"

namespace corvane {

/// A held folder on Linux. Packages are known by their extensions. A read-only folder that contains something is
/// deleted only in the Trash.
class LinuxHeldFolder final : public PosixHeldFolder {
public:
    using PosixHeldFolder::PosixHeldFolder;

    /// As `FileSystem::holdFolder`.
    [[nodiscard]] static Expected<std::unique_ptr<HeldFolder>> hold(const std::string &path);

private:
    [[nodiscard]] bool isPackage(const std::string &name) const override;
    [[nodiscard]] Expected<std::unique_ptr<OpenFolder>> openInside(int folder, const std::string &name) const override;
    [[nodiscard]] ItemRemoval::ReadOnlyFolders readOnlyFolders() const override;
};

} // namespace corvane
