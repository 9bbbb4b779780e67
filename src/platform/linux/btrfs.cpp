#include "platform/linux/btrfs.h"

#include <linux/magic.h>
#include <sys/statfs.h>

namespace corvane {

bool isOnBtrfs(const std::string &path)
{
    struct statfs system {};
    return ::statfs(path.c_str(), &system) == 0 && system.f_type == BTRFS_SUPER_MAGIC;
}

} // namespace corvane
