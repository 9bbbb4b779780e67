#include "platform/mount.h"

#include <sys/stat.h>

namespace corvane {

std::optional<Mount> Mount::of(int descriptor)
{
    // macOS never mounts a device twice.
    struct stat facts {};
    if (::fstat(descriptor, &facts) != 0)
        return std::nullopt;
    Mount mount;
    mount.m_device = static_cast<std::uint64_t>(facts.st_dev);
    return mount;
}

bool Mount::isSameAs(const Mount &other) const
{
    return m_device == other.m_device;
}

} // namespace corvane
