#include "platform/linux/mount_points.h"

#include <cerrno>
#include <utility>

#include "platform/linux/mount_table.h"

namespace corvane {

Expected<std::vector<std::string>> listedMountPoints()
{
    std::vector<std::string> points;
    for (MountedFolder &mount : readMountTable())
        points.push_back(std::move(mount.path));
    if (points.empty()) {
        return tl::unexpected(Error{"read",
                                    "/proc/self/mountinfo",
                                    {ENOENT, std::generic_category()},
                                    "The system does not tell which disks are mounted."});
    }
    return points;
}

} // namespace corvane
