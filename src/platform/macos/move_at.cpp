#include "platform/posix/item_at.h"

#include <cerrno>
#include <cstdio>

namespace corvane {

bool moveAt(int folder, const std::string &name, int target, const std::string &newName)
{
    if (::renameatx_np(folder, name.c_str(), target, newName.c_str(), RENAME_EXCL) == 0)
        return true;
    // Some file systems do not support flags.
    return (errno == ENOTSUP || errno == EINVAL) && moveAfterLooking(folder, name, target, newName);
}

} // namespace corvane
