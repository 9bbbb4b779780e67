#include "platform/linux/block_device.h"

#include <array>
#include <climits>
#include <cstdlib>
#include <fstream>
#include <string_view>

#include <sys/stat.h>
#include <sys/sysmacros.h>

#include "platform/linux/mount_table.h"
#include "platform/path.h"

namespace corvane {

std::optional<dev_t> blockDeviceOf(const std::string &path)
{
    const MountedFolder *around = nullptr;
    const auto table = readMountTable();
    for (const MountedFolder &mount : *table) {
        // Of two mounts at one path the later one is on top.
        if (isOrLiesBeneath(path, mount.path) && (around == nullptr || mount.path.size() >= around->path.size()))
            around = &mount;
    }
    struct stat facts {};
    if (around != nullptr && around->source.starts_with("/dev/") && ::stat(around->source.c_str(), &facts) == 0 &&
        S_ISBLK(facts.st_mode))
        return facts.st_rdev;
    return std::nullopt;
}

std::string numberOf(dev_t device)
{
    return std::to_string(::major(device)) + ":" + std::to_string(::minor(device));
}

bool isSpinning(const std::string &devices, const std::string &number)
{
    std::array<char, PATH_MAX> buffer;
    if (::realpath((devices + "/" + number).c_str(), buffer.data()) == nullptr)
        return false;
    const std::string device = buffer.data();
    if (device.find("/virtio") != std::string::npos)
        return false;
    // A partition's directory is inside the disk's.
    for (const std::string_view queue : {"/queue/rotational", "/../queue/rotational"}) {
        std::ifstream file(device + std::string(queue));
        if (char answer = 0; file.get(answer))
            return answer == '1';
    }
    return false;
}

} // namespace corvane
