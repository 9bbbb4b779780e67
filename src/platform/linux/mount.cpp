#include "platform/mount.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/sysmacros.h>

namespace corvane {

std::optional<Mount> Mount::of(int descriptor)
{
    struct statx facts {};
    if (::statx(descriptor, "", AT_EMPTY_PATH | AT_NO_AUTOMOUNT, STATX_TYPE | STATX_MNT_ID, &facts) != 0)
        return std::nullopt;
    Mount mount;
    if ((facts.stx_mask & STATX_MNT_ID) != 0)
        mount.m_number = facts.stx_mnt_id; // since Linux 5.8
    mount.m_device = makedev(facts.stx_dev_major, facts.stx_dev_minor);
    return mount;
}

bool Mount::isSameAs(const Mount &other) const
{
    return m_number && other.m_number ? m_number == other.m_number : m_device == other.m_device;
}

} // namespace corvane
