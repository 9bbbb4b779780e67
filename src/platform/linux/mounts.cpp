#include "platform/linux/mounts.h"

#include <cerrno>
#include <fstream>
#include <sstream>

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/sysmacros.h>

#include "platform/linux/long_path.h"
#include "platform/linux/real_path.h"

namespace corvane {

namespace {

tl::unexpected<Error> failure(const char *operation, const std::string &path, int code, std::string text = {})
{
    return tl::unexpected(Error{operation, path, {code, std::generic_category()}, std::move(text)});
}

/// A path as the kernel's list writes it, where blanks and the like stand as "\040".
std::string unescaped(const std::string &text)
{
    const auto isDigit = [&](std::size_t i) { return i < text.size() && text[i] >= '0' && text[i] <= '7'; };
    std::string path;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == '\\' && isDigit(i + 1) && isDigit(i + 2) && isDigit(i + 3)) {
            path += static_cast<char>((text[i + 1] - '0') * 64 + (text[i + 2] - '0') * 8 + (text[i + 3] - '0'));
            i += 3;
        } else {
            path += text[i];
        }
    }
    return path;
}

/// The mount point that is `folder` or else the first one inside it, or none. `folder` has no links in it.
Expected<std::optional<std::string>> mountPointWithin(const std::string &folder)
{
    static constexpr const char *list = "/proc/self/mountinfo";
    std::ifstream mounts(list);
    std::optional<std::string> inside;
    bool isEmpty = true;
    for (std::string line; std::getline(mounts, line);) {
        std::istringstream fields(line);
        std::string number, parent, device, root, point;
        if (!(fields >> number >> parent >> device >> root >> point))
            continue;
        isEmpty = false;
        point = unescaped(point);
        if (point == folder)
            return point;
        if (!inside && point.size() > folder.size() && point.starts_with(folder) && point[folder.size()] == '/')
            inside = point;
    }
    if (isEmpty)
        return failure("read", list, ENOENT, "The system does not tell which disks are mounted.");
    return inside;
}

} // namespace

std::optional<Mount> Mount::of(int descriptor)
{
    struct statx facts {};
    if (::statx(descriptor, "", AT_EMPTY_PATH | AT_NO_AUTOMOUNT, STATX_TYPE | STATX_MNT_ID, &facts) != 0)
        return std::nullopt;
    Mount mount;
    if ((facts.stx_mask & STATX_MNT_ID) != 0)
        mount.m_number = facts.stx_mnt_id;
    mount.m_device = makedev(facts.stx_dev_major, facts.stx_dev_minor);
    return mount;
}

bool Mount::isSameAs(const Mount &other) const
{
    return m_number && other.m_number ? m_number == other.m_number : m_device == other.m_device;
}

Expected<void> refuseMountPoints(const char *operation, const std::string &path)
{
    const std::size_t last = path.find_last_not_of('/');
    if (last == std::string::npos)
        return failure(operation, path, EINVAL);
    const std::string item = path.substr(0, last + 1);
    const Expected<LongPath> place = LongPath::resolve(item);
    if (!place)
        return failure(operation, path, place.error().code.value());
    struct stat facts;
    if (::fstatat(place->folder(), place->name(), &facts, AT_SYMLINK_NOFOLLOW) != 0)
        return failure(operation, path, errno);
    if (!S_ISDIR(facts.st_mode))
        return {};

    const Expected<std::string> folder = resolvedPath(item);
    if (!folder)
        return failure(operation, path, folder.error().code.value());
    const Expected<std::optional<std::string>> point = mountPointWithin(*folder);
    if (!point)
        return failure(operation, path, point.error().code.value(), point.error().text);
    if (!*point)
        return {};
    if (**point == *folder)
        return failure(operation, path, EBUSY, "Another disk is mounted there.");
    return tl::unexpected(mountedInside(operation, path + (*point)->substr(folder->size())));
}

Error mountedInside(const char *operation, std::string path)
{
    return Error{operation, std::move(path), std::make_error_code(std::errc::device_or_resource_busy),
                 "Another disk is mounted inside it."};
}

} // namespace corvane
