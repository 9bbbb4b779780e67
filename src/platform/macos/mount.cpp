#include "platform/mount.h"

#include <sys/stat.h>

namespace corvane {

std::optional<Mount> Mount::of(int descriptor)
{
    // No device is mounted twice on a Mac.
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
