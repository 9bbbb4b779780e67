#include "platform/linux/mount_points.h"

#include <cerrno>

#include "platform/linux/mount_table.h"

namespace corvane {

Expected<std::vector<std::string>> listedMountPoints()
{
    std::vector<std::string> points;
    const auto table = readMountTable();
    for (const MountedFolder &mount : *table)
        points.push_back(mount.path);
    if (points.empty()) {
        return tl::unexpected(Error{"read",
                                    "/proc/self/mountinfo",
                                    {ENOENT, std::generic_category()},
                                    "The system does not tell which disks are mounted."});
    }
    return points;
}

} // namespace corvane
