#include "platform/posix/item_at.h"

#include <array>
#include <cstdio>
#include <random>

#include <fcntl.h>
#include <sys/stat.h>

namespace corvane {

bool isItemName(const std::string &name)
{
    return !name.empty() && name != "." && name != ".." && name.find('/') == std::string::npos;
}

ItemIdentity identityOf(const struct stat &facts)
{
    return {.type = S_ISDIR(facts.st_mode)   ? EntryType::directory
                    : S_ISLNK(facts.st_mode) ? EntryType::symbolicLink
                                             : EntryType::file,
            .device = static_cast<std::uint64_t>(facts.st_dev),
            .inode = static_cast<std::uint64_t>(facts.st_ino)};
}

std::optional<ItemIdentity> identityAt(int folder, const std::string &name)
{
    struct stat facts {};
    if (::fstatat(folder, name.c_str(), &facts, AT_SYMLINK_NOFOLLOW) != 0)
        return std::nullopt;
    return identityOf(facts);
}

bool isAt(int item, int folder, const std::string &name)
{
    struct stat expected {};
    struct stat found {};
    return ::fstat(item, &expected) == 0 && ::fstatat(folder, name.c_str(), &found, AT_SYMLINK_NOFOLLOW) == 0 &&
           expected.st_dev == found.st_dev && expected.st_ino == found.st_ino;
}

std::string uniqueName(const std::string &prefix)
{
    std::random_device source;
    std::array<char, 17> digits{};
    std::snprintf(digits.data(), digits.size(), "%08x%08x", source(), source());
    return prefix + digits.data();
}

} // namespace corvane
