#include "core/mount_map.h"

#include <algorithm>
#include <utility>

#include "platform/path.h"

namespace corvane {

std::string moved(std::string_view path, std::string_view from, std::string_view to)
{
    const std::string_view rest = path.substr(from == "/" ? 0 : from.size());
    return rest.empty() || rest == "/" ? std::string(to) : joined(to, rest.substr(1));
}

MountMap::MountMap(std::vector<MountedFolder> mounts) : m_mounts(std::move(mounts))
{
    std::ranges::stable_sort(m_mounts, {}, [](const MountedFolder &mount) { return mount.path.size(); });
}

const MountedFolder *MountMap::holding(std::string_view path) const
{
    const auto found = std::find_if(m_mounts.rbegin(), m_mounts.rend(),
                                    [&](const MountedFolder &mount) { return isOrLiesBeneath(path, mount.path); });
    return found == m_mounts.rend() ? nullptr : &*found;
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

std::vector<std::string> MountMap::otherPathsOf(const std::string &path) const
{
    std::vector<std::string> found;
    const MountedFolder *const own = holding(path);
    if (own == nullptr)
        return found;
    const std::string inside = moved(path, own->path, own->shown);
    for (const MountedFolder &mount : m_mounts) {
        if (mount.fileSystem != own->fileSystem || !isOrLiesBeneath(inside, mount.shown))
            continue;
        std::string other = moved(inside, mount.shown, mount.path);
        // Skip a path that another mount hides.
        if (other != path && holding(other) == &mount)
            found.push_back(std::move(other));
    }
    return found;
}

} // namespace corvane
