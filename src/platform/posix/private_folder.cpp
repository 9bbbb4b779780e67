#include "platform/private_folder.h"

#include <cerrno>

#include <dirent.h>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include "platform/failure.h"
#include "platform/posix/directory_stream.h"
#include "platform/posix/interrupted_call.h"

namespace corvane {

namespace {

constexpr mode_t folderMode = 0700;
constexpr mode_t fileMode = 0600;

/// A folder of the user's in another, created if it is missing; never what a link leads to.
Expected<FileDescriptor> ownFolder(int parent, const std::string &name, const std::string &path)
{
    if (::mkdirat(parent, name.c_str(), folderMode) != 0 && errno != EEXIST)
        return failure("mkdir", path);
    FileDescriptor folder(::openat(parent, name.c_str(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
    struct stat facts {};
    if (!folder.isOpen() || ::fstat(folder.number(), &facts) != 0)
        return failure("open", path);
    if (facts.st_uid != ::geteuid())
        return failure("open", path, EPERM);
    return folder;
}

} // namespace

Expected<PrivateFolder> PrivateFolder::open(const std::string &base, std::initializer_list<std::string_view> names)
{
    if (::mkdir(base.c_str(), folderMode) != 0 && errno != EEXIST)
        return failure("mkdir", base);
    FileDescriptor folder(::open(base.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (!folder.isOpen())
        return failure("open", base);
    std::string path = base;
    for (const std::string_view name : names) {
        path.append("/").append(name);
        auto inner = ownFolder(folder.number(), std::string(name), path);
        if (!inner)
            return tl::unexpected(inner.error());
        folder = std::move(*inner);
    }
    if (::fchmod(folder.number(), folderMode) != 0)
        return failure("chmod", path);
    if (::flock(folder.number(), LOCK_EX | LOCK_NB) != 0)
        return failure("lock", path);
    return PrivateFolder(std::move(folder), std::move(path));
}

Expected<FileDescriptor> PrivateFolder::createFile(const std::string &name) const
{
    constexpr int flags = O_RDWR | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC;
    FileDescriptor file(::openat(m_folder.number(), name.c_str(), flags, fileMode));
    if (!file.isOpen())
        return failure("create", pathOf(name));
    return file;
}

Expected<FileDescriptor> PrivateFolder::openFile(const std::string &name) const
{
    FileDescriptor file(::openat(m_folder.number(), name.c_str(), O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC));
    struct stat facts {};
    if (!file.isOpen() || ::fstat(file.number(), &facts) != 0)
        return failure("open", pathOf(name));
    if (!S_ISREG(facts.st_mode) || facts.st_uid != ::geteuid())
        return failure("open", pathOf(name), EPERM);
    return file;
}

Expected<void> PrivateFolder::renameFile(const FileDescriptor &file, const std::string &name,
                                         const std::string &newName) const
{
    struct stat opened {};
    struct stat named {};
    if (::fstat(file.number(), &opened) != 0 ||
        ::fstatat(m_folder.number(), name.c_str(), &named, AT_SYMLINK_NOFOLLOW) != 0)
        return failure("rename", pathOf(newName));
    if (opened.st_dev != named.st_dev || opened.st_ino != named.st_ino)
        return failure("rename", pathOf(newName), EBUSY);
    if (::renameat(m_folder.number(), name.c_str(), m_folder.number(), newName.c_str()) != 0)
        return failure("rename", pathOf(newName));
    return {};
}

void PrivateFolder::removeFile(const std::string &name) const
{
    ::unlinkat(m_folder.number(), name.c_str(), 0);
}

std::vector<std::string> PrivateFolder::names() const
{
    const DirectoryStream stream = ownStreamOf(m_folder.number());
    std::vector<std::string> names;
    if (!stream)
        return names;
    while (const dirent *const entry = ::readdir(stream.get())) {
        const std::string_view name = entry->d_name;
        if (name != "." && name != "..")
            names.emplace_back(name);
    }
    return names;
}

Expected<void> writeBytes(const FileDescriptor &file, std::string_view bytes)
{
    while (!bytes.empty()) {
        const ssize_t written = uninterrupted([&] { return ::write(file.number(), bytes.data(), bytes.size()); });
        if (written < 0)
            return failure("write", {});
        bytes.remove_prefix(static_cast<std::size_t>(written));
    }
    return {};
}

Expected<void> flushToDisk(const FileDescriptor &file)
{
    if (::fsync(file.number()) != 0)
        return failure("write", {});
    return {};
}

Expected<std::int64_t> lengthOf(const FileDescriptor &file)
{
    struct stat facts {};
    if (::fstat(file.number(), &facts) != 0)
        return failure("fstat", {});
    return facts.st_size;
}

} // namespace corvane
