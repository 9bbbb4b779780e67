#include "platform/crash_handler.h"

#include <algorithm>
#include <array>
#include <atomic>
#include <cerrno>
#include <climits>
#include <csignal>
#include <cstdint>
#include <cstdlib>
#include <span>
#include <string_view>
#include <utility>

#include <execinfo.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <ucontext.h>
#include <unistd.h>

#include "platform/environment.h"
#include "platform/linux/crash_report_text.h"
#include "platform/path.h"

namespace corvane {

namespace {

#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
constexpr bool hasSanitizer = true;
#elif defined(__has_feature)
constexpr bool hasSanitizer = __has_feature(address_sanitizer) || __has_feature(thread_sanitizer);
#else
constexpr bool hasSanitizer = false;
#endif

struct FatalSignal {
    int number;
    std::string_view name;
};
constexpr std::array<FatalSignal, 7> fatalSignals{{{SIGSEGV, "SIGSEGV"},
                                                   {SIGBUS, "SIGBUS"},
                                                   {SIGILL, "SIGILL"},
                                                   {SIGFPE, "SIGFPE"},
                                                   {SIGABRT, "SIGABRT"},
                                                   {SIGSYS, "SIGSYS"},
                                                   {SIGTRAP, "SIGTRAP"}}};

constexpr unsigned mostSeconds = 10; // time limit for writing, in case a needed lock is held
constexpr std::uintptr_t nullPage = 65'536;
constexpr std::size_t mostFrames = 128;
constexpr std::size_t mostNameSize = 64;

/// Everything that the handler uses, allocated beforehand: the handler itself must not allocate.
struct Prepared {
    std::array<char, 64UL * 1024> stack;
    std::array<char, PATH_MAX> path; // of the folder
    std::size_t pathSize;
    std::size_t foundSize; // length of the part of the path that must already exist
    std::array<char, NAME_MAX + 1> executable;
    std::array<char, mostNameSize> version;
    std::array<char, mostNameSize> build;
    pid_t mainThread;

    std::array<char, 32UL * 1024> text;
    std::array<char, 4096> maps;
    std::array<void *, mostFrames> frames;
    std::array<Module, mostFrames> modules;
};
Prepared prepared; // written at installation, then by the one thread that handles a crash

std::atomic<pid_t> handlingThread{0};
std::atomic<int> firstSignal{0};
static_assert(std::atomic<pid_t>::is_always_lock_free);

pid_t currentThread()
{
    return static_cast<pid_t>(::syscall(SYS_gettid));
}

void keep(std::span<char> field, std::string_view text)
{
    std::ranges::fill(field, '\0');
    std::ranges::copy(text.substr(0, field.size() - 1), field.begin());
}

void setAction(int signal, void (*handler)(int))
{
    struct sigaction action {};
    action.sa_handler = handler;
    ::sigaction(signal, &action, nullptr);
}

void unblock(int signal)
{
    sigset_t set;
    ::sigemptyset(&set);
    ::sigaddset(&set, signal);
    ::pthread_sigmask(SIG_UNBLOCK, &set, nullptr);
}

// Ends the program by the original signal.
void endNow(int /*signal*/)
{
    const int first = firstSignal.load();
    setAction(first, SIG_DFL);
    unblock(first);
    ::raise(first);
}

std::uintptr_t programCounter(const ucontext_t &context)
{
#if defined(__x86_64__)
    return static_cast<std::uintptr_t>(context.uc_mcontext.gregs[REG_RIP]);
#elif defined(__aarch64__)
    return static_cast<std::uintptr_t>(context.uc_mcontext.pc);
#else
    static_cast<void>(context);
    return 0;
#endif
}

// The frames from the crashed one on, without those of the handler.
std::span<void *const> crashedFrames(const ucontext_t &context)
{
    const int count = ::backtrace(prepared.frames.data(), static_cast<int>(prepared.frames.size()));
    std::span<void *> frames(prepared.frames.data(), static_cast<std::size_t>(std::max(count, 0)));
    const std::uintptr_t counter = programCounter(context);
    const auto first =
        std::ranges::find(frames, counter, [](void *frame) { return reinterpret_cast<std::uintptr_t>(frame); });
    return first == frames.end() ? frames : frames.subspan(static_cast<std::size_t>(first - frames.begin()));
}

void findModules(std::span<void *const> frames)
{
    ModuleFinder finder(frames, std::span(prepared.modules));
    const int file = ::open("/proc/self/maps", O_RDONLY | O_CLOEXEC);
    if (file < 0)
        return;
    for (;;) {
        const ssize_t count = ::read(file, prepared.maps.data(), prepared.maps.size());
        if (count < 0 && errno == EINTR)
            continue;
        if (count <= 0)
            break;
        finder.take(std::string_view(prepared.maps.data(), static_cast<std::size_t>(count)));
    }
    ::close(file);
}

std::string_view compose(int signal, const siginfo_t &info, const ucontext_t &context, std::int64_t seconds)
{
    ReportText text{std::span(prepared.text)};
    text.add("{\"app_name\":\"")
        .addHarmless(prepared.executable.data())
        .add("\",\"timestamp\":\"")
        .addTime(seconds, " ", ":");
    text.add(".00 +0000\",\"app_version\":\"").addHarmless(prepared.version.data());
    text.add("\",\"build_version\":\"").addHarmless(prepared.build.data()).add("\",\"bug_type\":\"309\"}\n\n");

    const auto known = std::ranges::find(fatalSignals, signal, &FatalSignal::number);
    text.add("Signal: ").addDecimal(signal).add(" ").add(known == fatalSignals.end() ? "" : known->name);
    text.add(", code ").addDecimal(info.si_code).add("\n");
    // A fault address may contain user data; one close to null cannot.
    const auto address = reinterpret_cast<std::uintptr_t>(info.si_addr);
    if (info.si_code > 0 && (signal == SIGSEGV || signal == SIGBUS)) {
        text.add("Fault address: ");
        if (address < nullPage)
            text.addHexadecimal(address).add("\n");
        else
            text.add("not near null\n");
    }
    text.add("Thread: ").add(currentThread() == prepared.mainThread ? "main\n\n" : "not the main one\n\n");

    const std::span<void *const> frames = crashedFrames(context);
    findModules(frames);
    for (std::size_t index = 0; index < frames.size(); ++index) {
        const Module &module = prepared.modules[index];
        text.addDecimal(static_cast<std::int64_t>(index)).add(" ");
        if (module.nameSize == 0)
            text.add("???\n");
        else
            text.add({module.name.data(), module.nameSize}).add(" + ").addHexadecimal(module.offset).add("\n");
    }
    return text.written();
}

void makeFolders()
{
    char *const path = prepared.path.data();
    for (std::size_t at = prepared.foundSize + 1; at <= prepared.pathSize; ++at) {
        if (path[at] != '/' && path[at] != '\0')
            continue;
        const char before = std::exchange(path[at], '\0');
        ::mkdir(path, 0700); // if it fails for other reasons than EEXIST, opening the file fails too
        path[at] = before;
    }
}

bool writeAll(int file, std::string_view text)
{
    while (!text.empty()) {
        const ssize_t count = ::write(file, text.data(), text.size());
        if (count < 0 && errno == EINTR)
            continue;
        if (count <= 0)
            return false;
        text.remove_prefix(static_cast<std::size_t>(count));
    }
    return true;
}

void writeReport(int signal, const siginfo_t &info, const ucontext_t &context)
{
    timespec now{};
    ::clock_gettime(CLOCK_REALTIME, &now);
    const std::string_view report = compose(signal, info, context, now.tv_sec);

    makeFolders();
    for (char copy = '0'; copy <= '9'; ++copy) {
        std::array<char, PATH_MAX + NAME_MAX> place{};
        ReportText path{std::span(place).first(place.size() - 1)};
        path.add({prepared.path.data(), prepared.pathSize}).add("/").add(prepared.executable.data()).add("-");
        path.addTime(now.tv_sec, "-", "");
        if (copy != '0')
            path.add("-").add({&copy, 1}); // another crash occurred in the same second
        path.add(".ips");
        const int file = ::open(place.data(), O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, 0600);
        if (file < 0 && errno == EEXIST)
            continue;
        if (file < 0)
            return;
        if (!writeAll(file, report))
            ::unlink(place.data());
        ::close(file);
        return;
    }
}

// Calls only async-signal-safe functions.
void handle(int signal, siginfo_t *info, void *context)
{
    pid_t none = 0;
    const pid_t self = currentThread();
    if (!handlingThread.compare_exchange_strong(none, self)) {
        if (none == self)
            endNow(signal); // the handler itself has crashed
        for (;;)
            ::pause(); // until the first thread ends the process
    }
    firstSignal = signal;
    setAction(SIGALRM, endNow);
    unblock(SIGALRM);
    ::alarm(mostSeconds);
    setAction(SIGXFSZ, SIG_IGN); // exceeding the file size limit must fail the write, not kill the process
    writeReport(signal, *info, *static_cast<const ucontext_t *>(context));

    // Queue the signal again with its original details. It is delivered on return, in the context of the crash, so that
    // a core dump shows it.
    setAction(signal, SIG_DFL);
    if (::syscall(SYS_rt_tgsigqueueinfo, ::getpid(), self, signal, info) != 0)
        endNow(signal);
}

std::string executableName()
{
    std::array<char, PATH_MAX> path{};
    const ssize_t size = ::readlink("/proc/self/exe", path.data(), path.size());
    return size <= 0 ? "corvane"
                     : std::string(lastPathComponent(std::string_view(path.data(), static_cast<std::size_t>(size))));
}

/// The folder of reports: a base from the environment, and the path below it.
struct ReportsFolder {
    std::string base;
    std::string beneath;
    std::size_t foundSize; // length of the part that is not created if missing: the home folder
};

ReportsFolder reportsFolder()
{
    if (const char *state = std::getenv("XDG_STATE_HOME"); state != nullptr && *state == '/')
        return {state, "/corvane/reports", 0};
    const char *home = std::getenv("HOME");
    std::string base = home != nullptr && *home == '/' ? home : Environment::accountHome();
    const std::size_t size = base.size();
    return {std::move(base), "/.local/state/corvane/reports", size};
}

} // namespace

std::optional<std::string> crashReportsFolder()
{
    const ReportsFolder folder = reportsFolder();
    return folder.base + folder.beneath;
}

bool installCrashHandler(const CrashingProgram &program)
{
    const ReportsFolder parts = reportsFolder();
    const std::string folder = parts.base + parts.beneath;
    if (hasSanitizer || folder.size() >= prepared.path.size())
        return false;
    std::ranges::copy(folder, prepared.path.begin());
    prepared.pathSize = folder.size();
    prepared.foundSize = parts.foundSize;
    keep(prepared.executable, executableName());
    keep(prepared.version, program.version);
    keep(prepared.build, program.build);
    prepared.mainThread = currentThread();
    // Loads the library for backtraces, which allocates memory.
    ::backtrace(prepared.frames.data(), 1);

    stack_t stack{};
    stack.ss_sp = prepared.stack.data();
    stack.ss_size = prepared.stack.size();
    ::sigaltstack(&stack, nullptr);
    struct sigaction action {};
    action.sa_sigaction = handle;
    action.sa_flags = SA_SIGINFO | SA_ONSTACK;
    for (const FatalSignal &signal : fatalSignals) {
        struct sigaction before {};
        // Signals that are ignored or already handled do not end the program.
        if (::sigaction(signal.number, nullptr, &before) == 0 && before.sa_handler == SIG_DFL)
            ::sigaction(signal.number, &action, nullptr);
    }
    return true;
}

} // namespace corvane
