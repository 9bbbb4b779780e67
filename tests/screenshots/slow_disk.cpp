#include "screenshots/slow_disk.h"

#include <atomic>
#include <thread>

#include <dirent.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace {

std::atomic<std::chrono::milliseconds> delay{};

} // namespace

namespace corvane {

void slowDownListings(std::chrono::milliseconds longer)
{
    delay = longer;
}

} // namespace corvane

// The program's own definition is found before the C library's.
extern "C" ssize_t getdents64(int descriptor, void *buffer, size_t size)
{
    std::this_thread::sleep_for(delay.load());
    return syscall(SYS_getdents64, descriptor, buffer, size);
}
