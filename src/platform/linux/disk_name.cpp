#include "platform/linux/disk_name.h"

#include <array>
#include <charconv>
#include <climits>
#include <utility>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "platform/linux/block_device.h"
#include "platform/linux/folder_names.h"
#include "platform/linux/os_release.h"

namespace corvane {

namespace {

std::optional<std::string> labelOfRoot()
{
    const std::optional<dev_t> device = blockDeviceOf("/");
    if (!device)
        return std::nullopt;
    FileDescriptor links(::open("/dev/disk/by-label", O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    const int folder = links.number();
    std::optional<std::string> label;
    forEachName(std::move(links), [&](const char *link) {
        struct stat target {};
        if (!label && ::fstatat(folder, link, &target, 0) == 0 && S_ISBLK(target.st_mode) && target.st_rdev == *device)
            label = unescapedLabel(link);
    });
    return label;
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
    constexpr std::size_t longestName = 256; // bytes, the longest possible label
    if (std::string system = OsRelease::load(files).value("NAME"); !system.empty() && system.size() <= longestName)
        return system;
    return hostName();
}

} // namespace corvane
