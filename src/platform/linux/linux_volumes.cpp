#include "platform/linux/linux_volumes.h"

#include <sys/statvfs.h>

#include "platform/block_count.h"
#include "platform/linux/btrfs.h"
#include "platform/linux/deleted_files.h"
#include "platform/linux/swap_files.h"
#include "platform/posix/interrupted_call.h"

namespace corvane {

VolumeFacts LinuxVolumes::facts(const std::string &path)
{
    struct statvfs volume {};
    const int result = uninterrupted([&] { return ::statvfs(path.c_str(), &volume); });
    fsblkcnt_t usedOrAvailable = 0; // excludes blocks reserved for root
    if (result != 0 || volume.f_bfree > volume.f_blocks ||
        __builtin_add_overflow(volume.f_blocks - volume.f_bfree, volume.f_bavail, &usedOrAvailable))
        return {};
    VolumeFacts facts;
    facts.total = bytesOfBlocks(usedOrAvailable, volume.f_frsize);
    facts.available = bytesOfBlocks(volume.f_bavail, volume.f_frsize);
    // On btrfs, available is less than free by the space reserved for metadata.
    if (!isOnBtrfs(path) && volume.f_bfree >= volume.f_bavail)
        facts.reserved = bytesOfBlocks(volume.f_bfree - volume.f_bavail, volume.f_frsize);
    return facts;
}

std::vector<SwapFile> LinuxVolumes::swapFiles()
{
    return listedSwapFiles();
}

std::vector<OpenDeletedFiles> LinuxVolumes::deletedFiles(const std::string &home)
{
    return openDeletedFiles(home);
}

} // namespace corvane
