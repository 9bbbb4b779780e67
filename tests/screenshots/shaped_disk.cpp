#include "screenshots/shaped_disk.h"

#include <atomic>
#include <thread>

#include <dirent.h>
#include <sys/stat.h>
#include <sys/statvfs.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace {

std::atomic<std::chrono::milliseconds> delay{};
std::atomic<std::chrono::milliseconds> readDelay{};

constexpr unsigned long blockSize = 4096;

struct Disk {
    fsblkcnt_t capacity; // in blocks
    fsblkcnt_t available;
};

constexpr Disk macsDisk{994'662'584'320 / blockSize, 183'371'001'856 / blockSize};
constexpr Disk linuxDisk{500'107'862'016 / blockSize, 87'507'862'016 / blockSize};

/// The disk of the shaped root, identified the same way as in the program.
const Disk &disk()
{
    static const bool isMacs = access("/System/Library/CoreServices/SystemVersion.plist", F_OK) == 0;
    return isMacs ? macsDisk : linuxDisk;
}

constexpr blkcnt_t scale = 1000; // of tests/shaped_root
constexpr blkcnt_t oneBlock = blockSize / 512;

} // namespace

namespace corvane {

void slowDownListings(std::chrono::milliseconds longer)
{
    delay = longer;
}

void slowDownReads(std::chrono::milliseconds longer)
{
    readDelay = longer;
}

} // namespace corvane

// These definitions take precedence over the C library's.

extern "C" ssize_t getdents64(int descriptor, void *buffer, size_t size) noexcept
{
    std::this_thread::sleep_for(delay.load());
    return syscall(SYS_getdents64, descriptor, buffer, size);
}

extern "C" ssize_t pread(int descriptor, void *buffer, size_t size, off_t offset)
{
    std::this_thread::sleep_for(readDelay.load());
    return syscall(SYS_pread64, descriptor, buffer, size, offset);
}

extern "C" int fstatat(int folder, const char *name, struct stat *facts, int flags) noexcept
{
    const long result = syscall(SYS_newfstatat, folder, name, facts, flags);
    if (result == 0 && facts->st_blocks > oneBlock)
        facts->st_blocks *= scale;
    return static_cast<int>(result);
}

extern "C" int statvfs(const char *, struct statvfs *volume) noexcept
{
    *volume = {};
    volume->f_bsize = blockSize;
    volume->f_frsize = blockSize;
    volume->f_blocks = disk().capacity;
    volume->f_bfree = disk().available;
    volume->f_bavail = disk().available;
    return 0;
}
