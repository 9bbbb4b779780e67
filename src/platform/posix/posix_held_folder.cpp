#include "platform/posix/posix_held_folder.h"

#include <cerrno>

#include <sys/stat.h>

#include "platform/failure.h"
#include "platform/path.h"
#include "platform/posix/item_at.h"
#include "platform/posix/real_path.h"
#include "platform/posix/stat_facts.h"

namespace corvane {

FolderIdentity PosixHeldFolder::identity() const
{
    struct stat facts {};
    return ::fstat(descriptor(), &facts) == 0 ? folderIdentity(facts) : FolderIdentity{};
}

Expected<ItemFacts> PosixHeldFolder::facts(const std::string &name)
{
    if (!isItemName(name))
        return failure("examine", joined(m_path, name), EINVAL);
    Expected<ItemFacts> found = factsAt(descriptor(), name, joined(m_path, name));
    if (found)
        found->isPackage = found->type == EntryType::directory && isPackage(name);
    return found;
}

Expected<void> PosixHeldFolder::removeItem(const std::string &name, const ItemIdentity &expected)
{
    if (!isItemName(name))
        return failure("delete", joined(m_path, name), EINVAL);
    const auto open = [this](int folder, const std::string &child) { return openInside(folder, child); };
    return ItemRemoval(descriptor(), m_path, open, readOnlyFolders()).remove(name, expected);
}

Expected<void> PosixHeldFolder::moveItem(const std::string &name, HeldFolder &target, const std::string &newName)
{
    if (!isItemName(name) || !isItemName(newName))
        return failure("move", joined(m_path, name), EINVAL);
    if (moveAt(descriptor(), name, target.descriptor(), newName))
        return {};
    const int code = errno;
    return failure("move", joined(m_path, name), code);
}

Expected<ResolvedFolder> openResolved(const std::string &path,
                                      const std::function<FileDescriptor(const std::string &)> &open)
{
    // If a folder on the path is being replaced, the resolved path may already be outdated.
    constexpr int attempts = 3;
    for (int attempt = 1;; ++attempt) {
        Expected<std::string> real = resolvedPath(path);
        if (!real)
            return tl::unexpected(real.error());
        FileDescriptor folder = open(*real);
        if (folder.isOpen())
            return ResolvedFolder{std::move(folder), *std::move(real)};
        if (attempt == attempts) {
            return failure("open", path, errno,
                           errno == ELOOP ? "a folder in its path was replaced while it was being removed" : "");
        }
    }
}

} // namespace corvane
