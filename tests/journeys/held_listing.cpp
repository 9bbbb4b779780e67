#include "journeys/held_listing.h"

#include <condition_variable>
#include <mutex>
#include <optional>
#include <utility>

#include <dirent.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace {

using FolderNumber = std::pair<dev_t, ino_t>;

std::mutex mutex;
std::condition_variable released;
std::optional<FolderNumber> held; // guarded by the mutex
bool reached = false;             // guarded by the mutex

std::optional<FolderNumber> numberOf(const struct stat &facts, int failed)
{
    return failed != 0 ? std::nullopt : std::optional(FolderNumber(facts.st_dev, facts.st_ino));
}

} // namespace

namespace corvane {

HeldListing::HeldListing(const std::string &folder)
{
    struct stat facts {};
    const int failed = ::stat(folder.c_str(), &facts);
    const std::lock_guard lock(mutex);
    held = numberOf(facts, failed);
    reached = false;
}

HeldListing::~HeldListing()
{
    release();
}

void HeldListing::release()
{
    const std::lock_guard lock(mutex);
    held.reset();
    released.notify_all();
}

bool HeldListing::isReached() const
{
    const std::lock_guard lock(mutex);
    return reached;
}

} // namespace corvane

// This definition takes precedence over the C library's.
extern "C" ssize_t getdents64(int descriptor, void *buffer, size_t size)
{
    struct stat facts {};
    const int failed = ::fstat(descriptor, &facts);
    {
        std::unique_lock lock(mutex);
        if (held && held == numberOf(facts, failed)) {
            reached = true;
            released.wait(lock, [] { return !held; });
        }
    }
    return syscall(SYS_getdents64, descriptor, buffer, size);
}
