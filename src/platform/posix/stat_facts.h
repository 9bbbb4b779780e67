#pragma once

#include <cstdint>

#include <sys/stat.h>

#include "platform/block_count.h"
#include "platform/file_system.h"

namespace corvane {

// What the kernel's record of an item says, in our terms.

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
    return Time(std::chrono::seconds(facts.st_mtime));
}

[[nodiscard]] inline ItemIdentity identityOf(const struct stat &facts)
{
    return {.type = entryType(facts),
            .device = static_cast<std::uint64_t>(facts.st_dev),
            .inode = static_cast<std::uint64_t>(facts.st_ino)};
}

[[nodiscard]] inline FolderIdentity folderIdentity(const struct stat &facts)
{
    return {static_cast<std::uint64_t>(facts.st_dev), static_cast<std::uint64_t>(facts.st_ino)};
}

/// Fills in what a listing tells of an item, but for whether it is a package.
inline void describe(DirectoryEntry &entry, const struct stat &facts)
{
    entry.type = entryType(facts);
    if (entry.type != EntryType::file)
        return;
    entry.allocated = allocatedBytes(facts);
    entry.length = facts.st_size;
    entry.modified = modificationTime(facts);
    entry.links = static_cast<std::uint32_t>(facts.st_nlink);
    entry.inode = facts.st_ino;
}

} // namespace corvane
