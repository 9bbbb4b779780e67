#include "core/mount_map.h"

#include <algorithm>
#include <ranges>
#include <utility>

#include "platform/path.h"

namespace corvane {

MountMap::MountMap(std::vector<MountedFolder> mounts) : m_mounts(std::move(mounts))
{
    std::ranges::stable_sort(m_mounts, {}, [](const MountedFolder &mount) { return mount.path.size(); });
}

const MountedFolder *MountMap::holding(std::string_view path) const
{
    for (const MountedFolder &mount : std::views::reverse(m_mounts)) {
        if (mount.path == path || liesBeneath(path, mount.path))
            return &mount;
    }
    return nullptr;
}

std::vector<const MountedFolder *> MountMap::beneath(std::string_view folder) const
{
    std::vector<const MountedFolder *> found;
    for (const MountedFolder &mount : m_mounts) {
        if (liesBeneath(mount.path, folder))
            found.push_back(&mount);
    }
    return found;
}

} // namespace corvane
