#include "platform/linux/disk_name.h"

#include <array>
#include <charconv>
#include <climits>
#include <memory>

#include <dirent.h>
#include <sys/stat.h>
#include <unistd.h>

#include "platform/linux/mount_table.h"
#include "platform/linux/os_release.h"

namespace corvane {

namespace {

/// What "/" is mounted from. The device of the files of a btrfs volume is not the one that its label leads to.
std::string sourceOfRoot()
{
    std::string source;
    const auto table = readMountTable();
    for (const MountedFolder &mount : *table) {
        if (mount.path == "/")
            source = mount.source; // the last lies on top
    }
    return source;
}

std::optional<std::string> labelOfRoot()
{
    constexpr const char *labels = "/dev/disk/by-label";
    const std::string source = sourceOfRoot();
    struct stat device {};
    if (!source.starts_with("/dev/") || ::stat(source.c_str(), &device) != 0 || !S_ISBLK(device.st_mode))
        return std::nullopt;
    const auto close = [](DIR *listing) { ::closedir(listing); };
    const std::unique_ptr<DIR, decltype(close)> links(::opendir(labels));
    if (!links)
        return std::nullopt;
    while (const dirent *link = ::readdir(links.get())) {
        struct stat target {};
        if (::fstatat(::dirfd(links.get()), link->d_name, &target, 0) == 0 && S_ISBLK(target.st_mode) &&
            target.st_rdev == device.st_rdev)
            return unescapedLabel(link->d_name);
    }
    return std::nullopt;
}

std::optional<std::string> hostName()
{
    std::array<char, HOST_NAME_MAX + 1> name{};
    if (::gethostname(name.data(), name.size() - 1) != 0 || name.front() == '\0')
        return std::nullopt;
    return name.data();
}

} // namespace

std::string unescapedLabel(std::string_view name)
{
    std::string label;
    for (std::size_t i = 0; i < name.size(); ++i) {
        unsigned char byte = 0;
        if (name.substr(i).starts_with("\\x") && i + 4 <= name.size() &&
            std::from_chars(name.data() + i + 2, name.data() + i + 4, byte, 16).ptr == name.data() + i + 4) {
            label += static_cast<char>(byte);
            i += 3;
        } else {
            label += name[i];
        }
    }
    return label;
}

std::optional<std::string> nameOfDisk(FileSystem &files)
{
    if (std::optional<std::string> label = labelOfRoot())
        return label;
    constexpr std::size_t longestName = 256; // bytes, as long as any label is
    if (std::string system = OsRelease::load(files).value("NAME"); !system.empty() && system.size() <= longestName)
        return system;
    return hostName();
}

} // namespace corvane
