#include "platform/spinning_disk.h"

#include <array>
#include <climits>
#include <cstdlib>
#include <fstream>
#include <map>
#include <mutex>
#include <string>
#include <string_view>

#include <sys/stat.h>
#include <sys/sysmacros.h>

#include "platform/linux/block_device.h"
#include "platform/linux/mount_table.h"

namespace corvane {

namespace {

std::string numberOf(dev_t device)
{
    return std::to_string(::major(device)) + ":" + std::to_string(::minor(device));
}

/// The device below a file system that has a number of its own, such as one with subvolumes; empty where there is none.
std::string numberOfSource(const std::string &folder)
{
    std::string source;
    std::size_t longest = 0;
    const auto table = readMountTable();
    for (const MountedFolder &mount : *table) {
        const bool isAround = mount.path == "/" || folder == mount.path || folder.starts_with(mount.path + "/");
        if (!isAround || mount.path.size() < longest)
            continue;
        longest = mount.path.size();
        source = mount.source;
    }
    struct stat facts;
    if (source.starts_with("/dev/") && ::stat(source.c_str(), &facts) == 0 && S_ISBLK(facts.st_mode))
        return numberOf(facts.st_rdev);
    return {};
}

} // namespace

bool isSpinning(const std::string &devices, const std::string &number)
{
    std::array<char, PATH_MAX> buffer;
    if (number.empty() || ::realpath((devices + "/" + number).c_str(), buffer.data()) == nullptr)
        return false;
    const std::string device = buffer.data();
    if (device.find("/virtio") != std::string::npos)
        return false;
    // A partition's device lies inside the disk's.
    for (const std::string_view queue : {"/queue/rotational", "/../queue/rotational"}) {
        std::ifstream file(device + std::string(queue));
        if (char answer = 0; file.get(answer))
            return answer == '1';
    }
    return false;
}

bool isOnSpinningDisk(const std::string &folder)
{
    // Measuring asks for thousands of folders, most of them on one disk.
    static std::mutex lock;
    static std::map<dev_t, bool> known;

    struct stat facts;
    if (::stat(folder.c_str(), &facts) != 0)
        return false;
    const std::scoped_lock guard(lock);
    const auto [place, isNew] = known.try_emplace(facts.st_dev, false);
    if (isNew) {
        const bool hasDevice = ::major(facts.st_dev) != 0;
        place->second = isSpinning("/sys/dev/block", hasDevice ? numberOf(facts.st_dev) : numberOfSource(folder));
    }
    return place->second;
}

} // namespace corvane
