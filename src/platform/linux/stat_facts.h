#pragma once

#include <cstdint>
#include <string_view>

#include <sys/stat.h>

#include "platform/block_count.h"
#include "platform/file_system.h"
#include "platform/linux/package_extensions.h"
#include "platform/path.h"

namespace corvane {

/// What the kernel's record of an item says, in our terms.

[[nodiscard]] inline EntryType entryType(const struct stat &facts)
{
    return S_ISDIR(facts.st_mode)   ? EntryType::directory
           : S_ISLNK(facts.st_mode) ? EntryType::symbolicLink
                                    : EntryType::file;
}

/// The kernel counts blocks of 512 bytes whatever the disk's own grain is. 0 where the count is nonsense.
[[nodiscard]] inline std::int64_t allocatedBytes(const struct stat &facts)
{
    return bytesOfBlocks(facts.st_blocks, 512).value_or(0);
}

[[nodiscard]] inline Time modificationTime(const struct stat &facts)
{
    return Time(std::chrono::seconds(facts.st_mtim.tv_sec));
}

[[nodiscard]] inline ItemFacts itemFacts(const struct stat &facts, std::string_view name)
{
    const EntryType type = entryType(facts);
    return {.type = type,
            .isPackage = type == EntryType::directory && isKnownPackageExtension(nameExtension(name)),
            .allocated = allocatedBytes(facts),
            .modified = modificationTime(facts),
            .identity = {.type = type, .device = facts.st_dev, .inode = facts.st_ino}};
}

} // namespace corvane
