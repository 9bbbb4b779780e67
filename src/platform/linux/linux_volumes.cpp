#include "platform/linux/linux_volumes.h"

#include <cerrno>

#include <sys/statvfs.h>

namespace corvane {

namespace {

/// Absent where a file system that reports nonsense would overflow.
std::optional<std::int64_t> bytes(fsblkcnt_t blocks, unsigned long blockSize)
{
    std::int64_t product = 0;
    if (__builtin_mul_overflow(blocks, blockSize, &product))
        return std::nullopt;
    return product;
}

} // namespace

VolumeFacts LinuxVolumes::facts(const std::string &path)
{
    struct statvfs volume {};
    int result = 0;
    do {
        result = ::statvfs(path.c_str(), &volume);
    } while (result != 0 && errno == EINTR);
    if (result != 0)
        return {};
    VolumeFacts facts;
    facts.total = bytes(volume.f_blocks, volume.f_frsize);
    facts.available = bytes(volume.f_bavail, volume.f_frsize); // without the share kept for the administrator
    return facts;
}

} // namespace corvane
