// Crashes in the way given by its first argument, with the crash handler installed unless there is a second argument.

#include <array>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <stdexcept>
#include <string_view>
#include <thread>
#include <vector>

#include <csignal>
#include <fcntl.h>
#include <sys/mman.h>
#include <sys/resource.h>
#include <unistd.h>

#include "platform/crash_handler.h"

namespace {

volatile int zero = 0;
volatile int seven = 7;
int *volatile nothing = nullptr;

void writeToNull()
{
    *nothing = 1;
}

// Not a tail call, and infinite in a way that the compiler cannot detect.
int overflow(int depth)
{
    if (zero != 0)
        return 0;
    std::array<volatile char, 4096> filling{};
    filling[static_cast<std::size_t>(depth) % filling.size()] = 1;
    return overflow(depth + 1) + filling[0];
}

void readBehindTheEndOfAFile()
{
    const int file = ::memfd_create("short", MFD_CLOEXEC);
    auto *const memory = static_cast<volatile char *>(::mmap(nullptr, 4096, PROT_READ, MAP_SHARED, file, 0));
    static_cast<void>(memory[100]);
}

void divideByZero()
{
#ifdef __x86_64__
    zero = seven / zero;
#else
    std::raise(SIGFPE);
#endif
}

void runWhatIsNoInstruction()
{
#ifdef __x86_64__
    asm volatile("ud2");
#else
    std::raise(SIGILL);
#endif
}

void trap()
{
#ifdef __x86_64__
    asm volatile("int3");
#else
    std::raise(SIGTRAP);
#endif
}

void inTwoThreads()
{
    std::vector<std::thread> threads;
    for (int index = 0; index < 8; ++index)
        threads.emplace_back(writeToNull);
    for (std::thread &thread : threads)
        thread.join();
}

// The address could be text from the user's data, so a report must not contain it.
void writeToAnAddressMadeOfText()
{
    std::uintptr_t address = 0;
    std::memcpy(&address, "SECRET", 6);
    *reinterpret_cast<volatile char *>(address) = 1;
}

// Limits file sizes, so that writes fail as on a full disk.
void withoutSpace()
{
    const rlimit little{.rlim_cur = 100, .rlim_max = 100};
    ::setrlimit(RLIMIT_FSIZE, &little);
    writeToNull();
}

void crash(std::string_view way)
{
    if (way == "null")
        writeToNull();
    if (way == "text")
        writeToAnAddressMadeOfText();
    if (way == "overflow")
        std::exit(overflow(0));
    if (way == "bus")
        readBehindTheEndOfAFile();
    if (way == "divide")
        divideByZero();
    if (way == "instruction")
        runWhatIsNoInstruction();
    if (way == "abort")
        std::abort();
    if (way == "exception")
        throw std::runtime_error("SECRET");
    if (way == "system")
        std::raise(SIGSYS);
    if (way == "trap")
        trap();
    if (way == "killed")
        ::kill(::getpid(), SIGSEGV);
    if (way == "thread")
        std::thread(writeToNull).join();
    if (way == "space")
        withoutSpace();
    if (way == "threads")
        inTwoThreads();
}

} // namespace

int main(int argc, char **argv)
{
    const rlimit none{.rlim_cur = 0, .rlim_max = 0};
    ::setrlimit(RLIMIT_CORE, &none);
    if (argc == 2 && !corvane::installCrashHandler({.version = "1.2.0", .build = "10200"}))
        return 3;
    if (argc > 1)
        crash(argv[1]);
    return 0;
}
