#include "platform/posix/item_removal.h"

#include <cerrno>
#include <optional>
#include <string_view>
#include <utility>
#include <vector>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "platform/failure.h"
#include "platform/folder_chain.h"
#include "platform/held_folder.h"
#include "platform/mount.h"
#include "platform/path.h"
#include "platform/posix/item_at.h"
#include "platform/text.h"

namespace corvane {

namespace {

constexpr const char *operationName = "delete";

/// Adds the owner's write permission to a folder that belongs to the user. Does not report failures, because deleting
/// the folder's contents then fails.
void makeWritable(int folder)
{
    constexpr mode_t permissions = 07777;
    struct stat facts {};
    if (::fstat(folder, &facts) == 0 && facts.st_uid == ::getuid() && (facts.st_mode & S_IWUSR) == 0)
        (void)::fchmod(folder, (facts.st_mode & permissions) | S_IWUSR);
}

/// Deletes the contents of one folder, innermost folders first.
class FolderEmptying {
public:
    /// `path` is the folder's path, for errors. Only folders on `mount`, the mount of its parent, are entered.
    FolderEmptying(std::string path, const Mount &mount, ItemRemoval::ReadOnlyFolders readOnlyFolders)
        : m_path(std::move(path)), m_mount(mount), m_readOnlyFolders(readOnlyFolders)
    {
    }

    /// Deletes as much as possible. Fails with the error of the first item that could not be deleted.
    Expected<void> empty(std::unique_ptr<OpenFolder> top)
    {
        enter(std::move(top), {});
        while (!m_levels.empty()) {
            Level &level = m_levels.back();
            // If a parent folder cannot be reopened, none of the folders above it can be reached.
            if (!(level.subfolders.empty() ? leave() : goDown(level)))
                break;
        }
        if (!m_firstFailure)
            return {};
        m_firstFailure->inPart = m_hasDeleted;
        return tl::unexpected(*m_firstFailure);
    }

    [[nodiscard]] bool hasDeleted() const { return m_hasDeleted; }

private:
    struct Level {
        std::string name;
        std::vector<std::string> subfolders; // still to be deleted
    };

    /// Enters or deletes the next subfolder of the innermost folder. False if the walk cannot continue.
    bool goDown(Level &level)
    {
        const std::string name = std::move(level.subfolders.back());
        level.subfolders.pop_back();
        OpenFolder *const parent = m_folders.innermost();
        if (!parent) {
            noteFailure("open", ESTALE, name);
            return false;
        }
        Expected<std::unique_ptr<OpenFolder>> child = m_folders.openChild(name);
        if (child) {
            enter(std::move(*child), name);
            return true;
        }
        const int descriptor = parent->descriptor();
        // A folder that cannot be opened can still be deleted if it is empty. If a link or a file has replaced it,
        // delete that: it is inside the item as well.
        if (child.error().code.value() == ENOENT)
            return true;
        if (::unlinkat(descriptor, name.c_str(), AT_REMOVEDIR) == 0 ||
            (errno == ENOTDIR && ::unlinkat(descriptor, name.c_str(), 0) == 0))
            m_hasDeleted = true;
        else
            noteFailure("open", child.error().code.value(), name);
        return true;
    }

    /// Lists a folder, makes it the innermost one and deletes everything directly inside except subfolders. Skips a
    /// folder on another mount.
    void enter(std::unique_ptr<OpenFolder> folder, const std::string &name)
    {
        const std::optional<Mount> mount = Mount::of(folder->descriptor());
        if (!mount)
            return noteFailure("examine", errno, name);
        if (!mount->isSameAs(m_mount))
            return noteFailure("delete", EBUSY, name, diskMountedInside);
        Level level{.name = name, .subfolders = {}};
        std::vector<std::string> others;
        const Expected<void> listed = folder->list([&](const DirectoryEntry &entry) {
            (entry.type == EntryType::directory ? level.subfolders : others).emplace_back(entry.name);
        });
        const int descriptor = folder->descriptor();
        if (m_readOnlyFolders == ItemRemoval::ReadOnlyFolders::yield)
            makeWritable(descriptor);
        m_folders.push(std::move(folder));
        m_levels.push_back(std::move(level));
        if (!listed)
            noteFailure("list", listed.error().code.value());
        for (const std::string &other : others) {
            if (::unlinkat(descriptor, other.c_str(), 0) == 0)
                m_hasDeleted = true;
            else if (errno != ENOENT)
                noteFailure("delete", errno, other);
        }
    }

    /// Deletes the innermost folder, which has been emptied, and returns to its parent. False if the walk cannot
    /// continue.
    bool leave()
    {
        const std::string name = std::move(m_levels.back().name);
        m_levels.pop_back();
        m_folders.pop();
        if (m_folders.empty())
            return true; // the caller deletes the top folder
        OpenFolder *const parent = m_folders.innermost();
        if (!parent) {
            noteFailure("open", ESTALE, name);
            return false;
        }
        if (::unlinkat(parent->descriptor(), name.c_str(), AT_REMOVEDIR) == 0)
            m_hasDeleted = true;
        else if (errno != ENOENT)
            noteFailure("delete", errno, name); // what failed inside has been noted before
        return true;
    }

    /// Keeps the first failure only. `name` is that of an item in the innermost folder; empty for the folder itself.
    void noteFailure(const char *operation, int code, std::string_view name = {}, std::string text = {})
    {
        if (!m_firstFailure)
            m_firstFailure = kernelError(operation, pathOf(name), code, std::move(text));
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

    const std::string m_path;
    const Mount m_mount;
    const ItemRemoval::ReadOnlyFolders m_readOnlyFolders;
    FolderChain m_folders;
    std::vector<Level> m_levels; // the folders of m_folders, in the same order
    std::optional<Error> m_firstFailure;
    bool m_hasDeleted = false;
};

} // namespace

Expected<void> ItemRemoval::remove(const std::string &name, const ItemIdentity &expected) const
{
    const std::optional<ItemIdentity> found = identityAt(m_parent, name);
    if (!found)
        return failure(operationName, joined(m_parentPath, name), errno);
    if (*found != expected)
        return tl::unexpected(replacedMeanwhile(operationName, joined(m_parentPath, name)));
    return expected.type == EntryType::directory ? removeFolder(name, expected) : removeFile(name, expected);
}

/// unlink() takes a name, and another program may just have given that name to another file, as when it saves a newer
/// version. So the file is renamed to a unique name first, and deleted only if the file with that name is the expected
/// one; any other file gets its name back.
Expected<void> ItemRemoval::removeFile(const std::string &name, const ItemIdentity &expected) const
{
    const std::string path = joined(m_parentPath, name);
    constexpr std::size_t longest = 200; // bytes; a name may have 255, and the suffix takes 25
    const std::string aside = uniqueName(std::string(startOf(name, longest)) + ".corvane-");
    if (!moveAt(m_parent, name, m_parent, aside)) {
        if (errno == ENOENT)
            return failure(operationName, path, errno);
        if (!isStill(name, expected))
            return tl::unexpected(replacedMeanwhile(operationName, path));
        // A full disk may have no space left to rename a file, but deleting one still works.
        return ::unlinkat(m_parent, name.c_str(), 0) == 0 ? Expected<void>{} : failure(operationName, path, errno);
    }
    if (!isStill(aside, expected)) {
        if (moveAt(m_parent, aside, m_parent, name))
            return tl::unexpected(replacedMeanwhile(operationName, path));
        Error error = replacedMeanwhile(operationName, path);
        error.text += ", and what took its place is now called " + aside;
        return tl::unexpected(std::move(error));
    }
    if (::unlinkat(m_parent, aside.c_str(), 0) == 0)
        return {};
    const int code = errno;
    (void)moveAt(m_parent, aside, m_parent, name);
    return failure(operationName, path, code);
}

/// Empties the folder through its descriptor, after comparing the identity of the open folder. If another folder gets
/// the name after the last check, rmdir() deletes that one only if it is empty.
Expected<void> ItemRemoval::removeFolder(const std::string &name, const ItemIdentity &expected) const
{
    const std::string path = joined(m_parentPath, name);
    const std::optional<Mount> mount = Mount::of(m_parent);
    if (!mount)
        return failure(operationName, path, errno);
    Expected<std::unique_ptr<OpenFolder>> top = m_openInside(m_parent, name);
    FolderEmptying emptying(path, *mount, m_readOnlyFolders);
    if (top) {
        if (const FolderIdentity opened = (*top)->identity();
            opened.device != expected.device || opened.inode != expected.inode)
            return tl::unexpected(replacedMeanwhile(operationName, path));
        if (Expected<void> emptied = emptying.empty(std::move(*top)); !emptied)
            return emptied;
    }
    if (!isStill(name, expected)) {
        Error error = replacedMeanwhile(operationName, path);
        error.inPart = emptying.hasDeleted();
        return tl::unexpected(std::move(error));
    }
    if (::unlinkat(m_parent, name.c_str(), AT_REMOVEDIR) == 0)
        return {};
    Error error = kernelError(operationName, path, top ? errno : top.error().code.value());
    error.inPart = emptying.hasDeleted();
    return tl::unexpected(std::move(error));
}

bool ItemRemoval::isStill(const std::string &name, const ItemIdentity &expected) const
{
    const std::optional<ItemIdentity> found = identityAt(m_parent, name);
    return found && *found == expected;
}

} // namespace corvane
