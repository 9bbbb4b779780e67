#include "platform/linux/item_removal.h"

#include <cerrno>
#include <optional>
#include <string_view>
#include <vector>

#include <fcntl.h>

#include "platform/folder_chain.h"
#include "platform/linux/linux_open_folder.h"
#include "platform/linux/long_path.h"
#include "platform/linux/mounts.h"
#include "platform/linux/stat_facts.h"

namespace corvane {

namespace {

/// Empties one folder from the bottom up.
class Removal {
public:
    /// `mount` is that of the folder which contains the item.
    Removal(const std::string &path, const Mount &mount) : m_path(path), m_mount(mount) {}

    Expected<void> emptyFolder(std::unique_ptr<LinuxOpenFolder> top)
    {
        if (Expected<void> entered = enter(std::move(top), {}); !entered)
            return entered;
        while (!m_levels.empty()) {
            Level &level = m_levels.back();
            Expected<void> done = level.subfolders.empty() ? leave() : goDown(level);
            if (!done)
                return done;
        }
        return {};
    }

private:
    struct Level {
        std::string name;
        std::vector<std::string> subfolders; // those still to be deleted
    };

    Expected<void> goDown(Level &level)
    {
        OpenFolder *const parent = m_folders.innermost();
        if (!parent)
            return failure("open", ESTALE);
        std::string name = std::move(level.subfolders.back());
        level.subfolders.pop_back();
        Expected<std::unique_ptr<OpenFolder>> child = m_folders.openChild(name);
        if (child) {
            return enter(std::unique_ptr<LinuxOpenFolder>(static_cast<LinuxOpenFolder *>(child->release())),
                         std::move(name));
        }
        const int descriptor = static_cast<LinuxOpenFolder *>(parent)->descriptor();
        // One that may not be looked into can still be deleted while it is empty, and so can a link or a file
        // that has taken the folder's place.
        if (child.error().code.value() == ENOENT || ::unlinkat(descriptor, name.c_str(), AT_REMOVEDIR) == 0)
            return {};
        if (errno == ENOTDIR && ::unlinkat(descriptor, name.c_str(), 0) == 0)
            return {};
        return failure("open", child.error().code.value(), name);
    }

    Expected<void> enter(std::unique_ptr<LinuxOpenFolder> folder, std::string name)
    {
        const std::optional<Mount> mount = Mount::of(folder->descriptor());
        if (!mount)
            return failure("examine", errno, name);
        if (!mount->isSameAs(m_mount))
            return tl::unexpected(mountedInside("delete", pathOf(name)));
        Level level{.name = std::move(name), .subfolders = {}};
        std::vector<std::string> others;
        Expected<void> listed = folder->list([&](const DirectoryEntry &entry) {
            (entry.type == EntryType::directory ? level.subfolders : others).emplace_back(entry.name);
        });
        if (!listed)
            return failure("list", listed.error().code.value(), level.name);
        for (const std::string &other : others) {
            if (::unlinkat(folder->descriptor(), other.c_str(), 0) != 0 && errno != ENOENT)
                return failure("delete", errno, other);
        }
        m_folders.push(std::move(folder));
        m_levels.push_back(std::move(level));
        return {};
    }

    Expected<void> leave()
    {
        const std::string name = std::move(m_levels.back().name);
        m_levels.pop_back();
        m_folders.pop();
        if (m_folders.empty())
            return {}; // the top itself is deleted by its path
        OpenFolder *const parent = m_folders.innermost();
        if (!parent)
            return failure("open", ESTALE, name);
        const int descriptor = static_cast<LinuxOpenFolder *>(parent)->descriptor();
        if (::unlinkat(descriptor, name.c_str(), AT_REMOVEDIR) != 0 && errno != ENOENT)
            return failure("delete", errno, name);
        return {};
    }

    /// The failure of an item of that name in the folder where the walk stands.
    tl::unexpected<Error> failure(const char *operation, int code, std::string_view name = {}) const
    {
        return tl::unexpected(Error{operation, pathOf(name), {code, std::generic_category()}, {}});
    }

    std::string pathOf(std::string_view name) const
    {
        std::string path = m_path;
        for (std::size_t i = 1; i < m_levels.size(); ++i)
            path.append("/").append(m_levels[i].name);
        if (!name.empty())
            path.append("/").append(name);
        return path;
    }

    const std::string &m_path;
    const Mount m_mount;
    FolderChain m_folders;
    std::vector<Level> m_levels; // the same folders
};

} // namespace

Expected<void> removeItemForGood(const std::string &path)
{
    const auto failure = [&](int code) {
        return tl::unexpected(Error{"delete", path, {code, std::generic_category()}, {}});
    };
    // A slash at the end would follow a link.
    const std::size_t last = path.find_last_not_of('/');
    if (last == std::string::npos)
        return failure(EINVAL);
    const Expected<LongPath> item = LongPath::resolve(path.substr(0, last + 1));
    if (!item)
        return failure(item.error().code.value());

    // From here on everything goes by the folder that contains the item, wherever its path may lead by then.
    const std::string_view relative(item->name());
    const std::size_t slash = relative.rfind('/');
    const std::string name(relative.substr(slash + 1));
    if (name == "." || name == "..")
        return failure(EINVAL);
    const std::string containing(slash == std::string_view::npos ? "." : relative.substr(0, slash + 1));
    const FileDescriptor parent(::openat(item->folder(), containing.c_str(), O_PATH | O_DIRECTORY | O_CLOEXEC));
    if (!parent.isOpen())
        return failure(errno);

    struct stat facts;
    if (::fstatat(parent.number(), name.c_str(), &facts, AT_SYMLINK_NOFOLLOW) != 0)
        return failure(errno);
    if (!S_ISDIR(facts.st_mode))
        return ::unlinkat(parent.number(), name.c_str(), 0) == 0 ? Expected<void>{} : failure(errno);

    // Looked for before the first item goes; the walk looks again at every folder that it enters.
    if (Expected<void> unmounted = refuseMountPoints("delete", path); !unmounted)
        return unmounted;
    const std::optional<Mount> mount = Mount::of(parent.number());
    if (!mount)
        return failure(errno);
    Expected<std::unique_ptr<LinuxOpenFolder>> top =
        LinuxOpenFolder::open(parent.number(), name.c_str(), LinuxOpenFolder::LinkRule::refuse);
    if (top) {
        if (Expected<void> emptied = Removal(path, *mount).emptyFolder(std::move(*top)); !emptied)
            return emptied;
    }
    if (::unlinkat(parent.number(), name.c_str(), AT_REMOVEDIR) != 0)
        return failure(top ? errno : top.error().code.value());
    return {};
}

} // namespace corvane
