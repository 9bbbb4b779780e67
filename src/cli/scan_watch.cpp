#include "cli/scan_watch.h"

#include <atomic>
#include <cerrno>
#include <csignal>
#include <system_error>

#include <fcntl.h>
#include <fmt/format.h>
#include <poll.h>
#include <unistd.h>

#include "cli/console.h"
#include "cli/terminal_text.h"
#include "core/path_guard.h"
#include "core/words/display_text.h"
#include "core/words/figures.h"

namespace corvane {

namespace {

constexpr int milliseconds = 100; ///< between two looks at the counters
constexpr char stopScan = 's';
constexpr char endWatch = 'e';

std::atomic<int> wakeUpDescriptor{-1};
static_assert(std::atomic<int>::is_always_lock_free, "used in a signal handler");

extern "C" void wakeUpWatch(int)
{
    const int savedError = errno;
    static_cast<void>(!write(wakeUpDescriptor.load(), &stopScan, 1));
    errno = savedError;
}

void handleStops(bool byWatch)
{
    struct sigaction action {};
    sigemptyset(&action.sa_mask);
    if (byWatch) {
        action.sa_handler = wakeUpWatch;
        // The default comes back with the first signal: the second ends a program that does not stop.
        action.sa_flags = static_cast<int>(SA_RESTART | static_cast<int>(SA_RESETHAND));
    } else {
        action.sa_handler = SIG_DFL;
    }
    sigaction(SIGINT, &action, nullptr);
    sigaction(SIGTERM, &action, nullptr);
}

void writeToTerminal(std::string_view text)
{
    static_cast<void>(!write(STDERR_FILENO, text.data(), text.size()));
}

} // namespace

ScanWatch::ScanWatch(ScanProgress &progress, Display display) : m_progress(progress), m_display(display)
{
    if (pipe(m_wakeUp.data()) != 0)
        throw std::system_error(errno, std::generic_category(), "pipe");
    for (const int descriptor : m_wakeUp)
        fcntl(descriptor, F_SETFD, FD_CLOEXEC);
    wakeUpDescriptor = m_wakeUp[1];
    m_thread = std::thread(&ScanWatch::run, this);
    handleStops(true);
}

ScanWatch::~ScanWatch()
{
    handleStops(false);
    static_cast<void>(!write(m_wakeUp[1], &endWatch, 1));
    m_thread.join();
    for (const int descriptor : m_wakeUp)
        close(descriptor);
}

void ScanWatch::run()
{
    const bool draws = m_display == Display::shown;
    for (;;) {
        pollfd wait{m_wakeUp[0], POLLIN, 0};
        const int ready = poll(&wait, 1, draws ? milliseconds : -1);
        char message = 0;
        if (ready > 0 && read(m_wakeUp[0], &message, 1) == 1) {
            if (message == endWatch)
                break;
            m_progress.cancel();
        } else if (draws) {
            draw();
        }
    }
    if (draws)
        writeToTerminal(clearLine);
}

void ScanWatch::draw()
{
    const ScanProgress::Counters counters = m_progress.counters();
    const std::string figures = fmt::format("Scanning… {} · {}  ", formatCount(counters.files, "file", "files"),
                                            formatByteCount(counters.bytes));
    // The last column stays free: some terminals break the line when it is written to.
    const std::size_t columns = Console::errorColumns() - 1;
    const std::size_t taken = displayWidth(figures);
    const std::string path = formatPath(counters.current, PathGuard::home());
    const std::string line =
        taken < columns ? figures + elidedAtFront(path, columns - taken) : elided(figures, columns);
    writeToTerminal(std::string(clearLine) + line);
}

} // namespace corvane
