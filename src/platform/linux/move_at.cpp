#include "platform/posix/item_at.h"

#include <cerrno>
#include <cstdio>

#include <fcntl.h>

namespace corvane {

bool moveAt(int folder, const std::string &name, int target, const std::string &newName)
{
    if (::renameat2(folder, name.c_str(), target, newName.c_str(), RENAME_NOREPLACE) == 0)
        return true;
    // Some file systems do not support flags.
    return (errno == EINVAL || errno == ENOSYS) && moveAfterLooking(folder, name, target, newName);
}

} // namespace corvane
