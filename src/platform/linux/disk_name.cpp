#include "platform/linux/disk_name.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <climits>
#include <memory>

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "platform/linux/mount_table.h"
#include "platform/posix/regular_file.h"

namespace corvane {

namespace {

constexpr std::size_t releaseLimit = 65'536; // bytes

std::string contentOf(const char *path)
{
    return RegularFile::open(AT_FDCWD, path, path, RegularFile::LinkRule::follow)
        .and_then([](const auto &file) { return file->readAll(releaseLimit); })
        .value_or(std::string());
}

/// What "/" is mounted from. The device of the files of a btrfs volume is not the one that its label leads to.
std::string sourceOfRoot()
{
    std::string source;
    for (const MountedFolder &mount : readMountTable()) {
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

std::optional<std::string> releaseField(std::string_view text, std::string_view name)
{
    for (std::size_t start = 0; start < text.size();) {
        const std::size_t end = std::min(text.find('\n', start), text.size());
        std::string_view line = text.substr(start, end - start);
        start = end + 1;
        if (!line.starts_with(name) || line.substr(name.size(), 1) != "=")
            continue;
        line.remove_prefix(name.size() + 1);
        if (line.size() >= 2 && (line.front() == '"' || line.front() == '\'') && line.back() == line.front())
            line = line.substr(1, line.size() - 2);
        if (!line.empty())
            return std::string(line);
    }
    return std::nullopt;
}

std::optional<std::string> nameOfDisk()
{
    if (std::optional<std::string> label = labelOfRoot())
        return label;
    if (std::optional<std::string> system = releaseField(contentOf("/etc/os-release"), "NAME"))
        return system;
    return hostName();
}

} // namespace corvane
