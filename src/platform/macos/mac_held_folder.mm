#include "platform/macos/mac_held_folder.h"

#include <fcntl.h>

#include "platform/macos/foundation_bridge.h"
#include "platform/macos/mac_open_folder.h"
#include "platform/path.h"
#include "platform/posix/interrupted_call.h"

namespace corvane {

bool isShownAsPackage(const std::string &path)
{
    return guardedAnswer(false, [&] {
        NSNumber *answer = nil;
        return [fileUrl(path) getResourceValue:&answer forKey:NSURLIsPackageKey error:nil] && answer.boolValue;
    });
}

Expected<std::unique_ptr<HeldFolder>> MacHeldFolder::hold(const std::string &path, PackageExtensionCache &packages)
{
    const auto open = [](const std::string &real) {
        return FileDescriptor(
            uninterrupted([&] { return ::open(real.c_str(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW_ANY | O_CLOEXEC); }));
    };
    Expected<ResolvedFolder> folder = openResolved(path, open);
    if (!folder)
        return tl::unexpected(folder.error());
    return std::make_unique<MacHeldFolder>(std::move(folder->descriptor), std::move(folder->path), packages);
}

bool MacHeldFolder::isPackage(const std::string &name) const
{
    return isShownAsPackage(joined(path(), name));
}

Expected<std::unique_ptr<OpenFolder>> MacHeldFolder::openInside(int folder, const std::string &name) const
{
    return MacOpenFolder::open(folder, name, O_NOFOLLOW, m_packages);
}

} // namespace corvane
