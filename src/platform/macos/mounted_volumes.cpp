#include "platform/macos/mounted_volumes.h"

#include <algorithm>

namespace corvane {

std::vector<struct statfs> mountedVolumes()
{
    std::vector<struct statfs> volumes(static_cast<std::size_t>(std::max(0, ::getfsstat(nullptr, 0, MNT_NOWAIT))));
    const int count = ::getfsstat(volumes.data(), static_cast<int>(volumes.size() * sizeof(struct statfs)), MNT_NOWAIT);
    volumes.resize(static_cast<std::size_t>(std::max(0, count)));
    return volumes;
}

} // namespace corvane
