#include "shell/updates/update_folder.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <memory>
#include <string_view>
#include <utility>

#include <dirent.h>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include "platform/failure.h"
#include "platform/posix/interrupted_call.h"

namespace corvane {

namespace {

constexpr std::string_view prefix = "Corvane-";
constexpr std::string_view partial = ".part";
constexpr std::string_view otherKind = ".download";
// The longest first where one ends with another.
constexpr std::array<std::string_view, 3> packages{".deb", ".rpm", ".flatpak"};
constexpr std::array<std::string_view, 9> others{".appimage", ".tar.gz", ".tar.xz", ".tar.zst", ".tar.bz2",
                                                 ".snap",     ".zip",    ".dmg",    ".pkg"};

bool isPlain(char character)
{
    return (character >= 'a' && character <= 'z') || (character >= 'A' && character <= 'Z') ||
           (character >= '0' && character <= '9') || character == '.' || character == '-' || character == '+';
}

std::string partialName(const std::string &name)
{
    return name + std::string(partial);
}

/// A folder of our own in another, made where it is not there. Never one of another user, nor what a link leads to.
Expected<FileDescriptor> ownFolder(int parent, const std::string &name, const std::string &path)
{
    constexpr mode_t privateMode = 0700;
    if (::mkdirat(parent, name.c_str(), privateMode) != 0 && errno != EEXIST)
        return failure("mkdir", path);
    FileDescriptor folder(::openat(parent, name.c_str(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
    struct stat facts {};
    if (!folder.isOpen() || ::fstat(folder.number(), &facts) != 0)
        return failure("open", path);
    if (facts.st_uid != ::geteuid())
        return failure("open", path, EPERM);
    return folder;
}

struct CloseFolder {
    void operator()(DIR *folder) const { ::closedir(folder); }
};

} // namespace

std::string UpdateName::of(const QString &version, const QUrl &download)
{
    constexpr std::size_t longestVersion = 40;
    std::string name(prefix);
    for (const char character : version.toStdString().substr(0, longestVersion))
        name += isPlain(character) ? character : '-';
    const std::string address = download.path(QUrl::FullyDecoded).toLower().toStdString();
    for (const auto kinds : {std::span<const std::string_view>(packages), std::span<const std::string_view>(others)}) {
        for (const std::string_view kind : kinds) {
            if (address.ends_with(kind))
                return name.append(kind);
        }
    }
    return name.append(otherKind);
}

bool UpdateName::isOurs(const std::string &name)
{
    std::string_view rest = name;
    if (!rest.starts_with(prefix) || !std::all_of(rest.begin(), rest.end(), isPlain))
        return false;
    if (rest.ends_with(partial))
        rest.remove_suffix(partial.size());
    const auto ends = [rest](std::string_view kind) { return rest.ends_with(kind); };
    return std::any_of(packages.begin(), packages.end(), ends) || std::any_of(others.begin(), others.end(), ends) ||
           ends(otherKind);
}

bool UpdateName::isPackage(const std::string &name)
{
    return std::any_of(packages.begin(), packages.end(), [&](std::string_view kind) { return name.ends_with(kind); });
}

Expected<UpdateFolder> UpdateFolder::open(const std::string &caches)
{
    constexpr mode_t privateMode = 0700;
    // The user may have put the folder of caches elsewhere by a link.
    if (::mkdir(caches.c_str(), privateMode) != 0 && errno != EEXIST)
        return failure("mkdir", caches);
    const FileDescriptor base(::open(caches.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (!base.isOpen())
        return failure("open", caches);
    const std::string ours = caches + "/corvane";
    auto outer = ownFolder(base.number(), "corvane", ours);
    if (!outer)
        return tl::unexpected(outer.error());
    const std::string path = ours + "/updates";
    auto folder = ownFolder(outer->number(), "updates", path);
    if (!folder)
        return tl::unexpected(folder.error());
    if (::fchmod(folder->number(), privateMode) != 0)
        return failure("chmod", path);
    if (::flock(folder->number(), LOCK_EX | LOCK_NB) != 0)
        return failure("lock", path);
    return UpdateFolder(std::move(*folder), path);
}

Expected<FileDescriptor> UpdateFolder::startDownload(const std::string &name) const
{
    abandonDownload(name);
    constexpr mode_t privateMode = 0600;
    FileDescriptor file(::openat(m_folder.number(), partialName(name).c_str(),
                                 O_RDWR | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, privateMode));
    if (!file.isOpen())
        return failure("create", m_path + "/" + partialName(name));
    return file;
}

Expected<FileDescriptor> UpdateFolder::finished(const std::string &name) const
{
    FileDescriptor file(::openat(m_folder.number(), name.c_str(), O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC));
    struct stat facts {};
    if (!file.isOpen() || ::fstat(file.number(), &facts) != 0)
        return failure("open", m_path + "/" + name);
    if (!S_ISREG(facts.st_mode) || facts.st_uid != ::geteuid())
        return failure("open", m_path + "/" + name, EPERM);
    return file;
}

Expected<void> UpdateFolder::finishDownload(const std::string &name, const FileDescriptor &file) const
{
    struct stat downloaded {};
    struct stat named {};
    if (::fstat(file.number(), &downloaded) != 0 ||
        ::fstatat(m_folder.number(), partialName(name).c_str(), &named, AT_SYMLINK_NOFOLLOW) != 0)
        return failure("rename", m_path + "/" + name);
    // Only the file that was verified gets the name.
    if (downloaded.st_dev != named.st_dev || downloaded.st_ino != named.st_ino)
        return failure("rename", m_path + "/" + name, EBUSY);
    if (::renameat(m_folder.number(), partialName(name).c_str(), m_folder.number(), name.c_str()) != 0)
        return failure("rename", m_path + "/" + name);
    removeOthers(name);
    return {};
}

void UpdateFolder::abandonDownload(const std::string &name) const
{
    ::unlinkat(m_folder.number(), partialName(name).c_str(), 0);
}

void UpdateFolder::removeOthers(const std::string &name) const
{
    const int again = ::openat(m_folder.number(), ".", O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    const std::unique_ptr<DIR, CloseFolder> listing(again < 0 ? nullptr : ::fdopendir(again));
    if (!listing) {
        if (again >= 0)
            ::close(again);
        return;
    }
    std::vector<std::string> old;
    while (const dirent *const entry = ::readdir(listing.get())) {
        if (entry->d_name != name && UpdateName::isOurs(entry->d_name))
            old.emplace_back(entry->d_name);
    }
    for (const std::string &item : old)
        ::unlinkat(m_folder.number(), item.c_str(), 0);
}

Expected<void> writeBytes(const FileDescriptor &file, QByteArrayView bytes)
{
    while (!bytes.empty()) {
        const ssize_t written =
            uninterrupted([&] { return ::write(file.number(), bytes.data(), static_cast<std::size_t>(bytes.size())); });
        if (written < 0)
            return failure("write", {});
        bytes = bytes.sliced(written);
    }
    return {};
}

} // namespace corvane
