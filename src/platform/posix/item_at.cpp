#include "platform/posix/item_at.h"

#include <array>
#include <cerrno>
#include <cstdio>
#include <random>

#include <fcntl.h>
#include <sys/stat.h>

#include "platform/failure.h"
#include "platform/posix/stat_facts.h"

namespace corvane {

bool isItemName(const std::string &name)
{
    return !name.empty() && name != "." && name != ".." && name.find('/') == std::string::npos;
}

std::optional<ItemIdentity> identityAt(int folder, const std::string &name)
{
    struct stat facts {};
    if (::fstatat(folder, name.c_str(), &facts, AT_SYMLINK_NOFOLLOW) != 0)
        return std::nullopt;
    return identityOf(facts);
}

Expected<ItemFacts> factsAt(int folder, const std::string &name, const std::string &path)
{
    struct stat facts {};
    if (::fstatat(folder, name.c_str(), &facts, AT_SYMLINK_NOFOLLOW) != 0)
        return failure("examine", path, errno);
    return ItemFacts{.type = entryType(facts),
                     .allocated = allocatedBytes(facts),
                     .modified = modificationTime(facts),
                     .identity = identityOf(facts)};
}

bool isAt(int item, int folder, const std::string &name)
{
    struct stat expected {};
    struct stat found {};
    return ::fstat(item, &expected) == 0 && ::fstatat(folder, name.c_str(), &found, AT_SYMLINK_NOFOLLOW) == 0 &&
           expected.st_dev == found.st_dev && expected.st_ino == found.st_ino;
}

bool moveAfterLooking(int folder, const std::string &name, int target, const std::string &newName)
{
    if (identityAt(target, newName)) {
        errno = EEXIST;
        return false;
    }
    return errno == ENOENT && ::renameat(folder, name.c_str(), target, newName.c_str()) == 0;
}

std::string uniqueName(const std::string &prefix)
{
    std::random_device source;
    std::array<char, 17> digits{};
    std::snprintf(digits.data(), digits.size(), "%08x%08x", source(), source());
    return prefix + digits.data();
}

} // namespace corvane
