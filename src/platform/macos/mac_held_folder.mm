#include "platform/macos/mac_held_folder.h"

#include <cerrno>
#include <cstdlib>

#include <fcntl.h>
#include <sys/stat.h>

#include "platform/block_count.h"
#include "platform/macos/foundation_bridge.h"
#include "platform/macos/mac_open_folder.h"
#include "platform/path.h"
#include "platform/posix/interrupted_call.h"
#include "platform/posix/item_at.h"
#include "platform/posix/item_removal.h"

namespace corvane {

namespace {

tl::unexpected<Error> failure(const char *operation, const std::string &path, int code, std::string text = {})
{
    return tl::unexpected(Error{operation, path, {code, std::generic_category()}, std::move(text)});
}

/// What the Finder makes of that very folder.
bool isShownAsPackage(const std::string &path)
{
    return guardedAnswer(false, [&] {
        NSNumber *answer = nil;
        return [fileUrl(path) getResourceValue:&answer forKey:NSURLIsPackageKey error:nil] && answer.boolValue;
    });
}

} // namespace

Expected<ItemFacts> macFactsAt(int folder, const std::string &name, const std::string &path)
{
    struct stat status {};
    if (::fstatat(folder, name.c_str(), &status, AT_SYMLINK_NOFOLLOW) != 0)
        return failure("look at", path, errno);
    ItemFacts facts;
    facts.type = S_ISDIR(status.st_mode)   ? EntryType::directory
                 : S_ISLNK(status.st_mode) ? EntryType::symbolicLink
                                           : EntryType::file;
    facts.isPackage = facts.type == EntryType::directory && isShownAsPackage(path);
    facts.allocated = bytesOfBlocks(status.st_blocks, S_BLKSIZE).value_or(0);
    facts.modified = Time(std::chrono::seconds(status.st_mtimespec.tv_sec));
    facts.identity = {.type = facts.type,
                      .device = static_cast<std::uint64_t>(status.st_dev),
                      .inode = static_cast<std::uint64_t>(status.st_ino)};
    return facts;
}

Expected<std::unique_ptr<HeldFolder>> MacHeldFolder::hold(const std::string &path, PackageExtensionCache &packages)
{
    // Where a folder on the way is being replaced, the path may lead elsewhere the moment after it was resolved.
    constexpr int attempts = 3;
    for (int attempt = 1;; ++attempt) {
        const std::unique_ptr<char, decltype(&std::free)> real(::realpath(path.c_str(), nullptr), std::free);
        if (!real)
            return failure("resolve", path, errno);
        FileDescriptor folder(
            uninterrupted([&] { return ::open(real.get(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW_ANY | O_CLOEXEC); }));
        if (folder.isOpen())
            return std::make_unique<MacHeldFolder>(std::move(folder), real.get(), packages);
        if (attempt == attempts)
            return failure("open", path, errno,
                           errno == ELOOP ? "a folder on its way was replaced while it was being removed" : "");
    }
}

FolderIdentity MacHeldFolder::identity() const
{
    struct stat status {};
    if (::fstat(descriptor(), &status) != 0)
        return {};
    return {static_cast<std::uint64_t>(status.st_dev), static_cast<std::uint64_t>(status.st_ino)};
}

Expected<ItemFacts> MacHeldFolder::facts(const std::string &name)
{
    if (!isItemName(name))
        return failure("look at", joined(m_path, name), EINVAL);
    return macFactsAt(descriptor(), name, joined(m_path, name));
}

Expected<void> MacHeldFolder::removeItem(const std::string &name, const ItemIdentity &expected)
{
    if (!isItemName(name))
        return failure("delete", joined(m_path, name), EINVAL);
    return ItemRemoval(descriptor(), m_path,
                       [this](int folder, const std::string &child) {
                           return MacOpenFolder::open(folder, child, O_NOFOLLOW, m_packages);
                       })
        .remove(name, expected);
}

Expected<void> MacHeldFolder::moveItem(const std::string &name, HeldFolder &target, const std::string &newName)
{
    if (!isItemName(name) || !isItemName(newName))
        return failure("move", joined(m_path, name), EINVAL);
    return moveAt(descriptor(), name, target.descriptor(), newName) ? Expected<void>{}
                                                                    : failure("move", joined(m_path, name), errno);
}

} // namespace corvane
