#pragma once

#include <cstdint>

#include <sys/stat.h>

#include "platform/block_count.h"
#include "platform/file_system.h"

namespace corvane {

// Conversions from struct stat to our types.

[[nodiscard]] inline EntryType entryType(const struct stat &facts)
{
    return S_ISDIR(facts.st_mode)   ? EntryType::directory
           : S_ISLNK(facts.st_mode) ? EntryType::symbolicLink
                                    : EntryType::file;
}

/// st_blocks is in units of 512 bytes regardless of the disk's block size. 0 if the count is invalid.
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

/// Fills in the entry of a listing, except `isPackage`.
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
