#include "cli/watch.h"

#include <atomic>
#include <cerrno>
#include <csignal>
#include <system_error>
#include <utility>

#include <poll.h>
#include <unistd.h>

#include "cli/console.h"
#include "cli/terminal_text.h"
#include "core/path_guard.h"
#include "core/words/display_text.h"

namespace corvane {

namespace {

constexpr int milliseconds = 100; ///< between two lines
constexpr char stopWork = 's';
constexpr char endWatch = 'e';

std::atomic<int> wakeUpDescriptor{-1};
static_assert(std::atomic<int>::is_always_lock_free, "used in a signal handler");

extern "C" void wakeUpWatch(int)
{
    const int savedError = errno;
    static_cast<void>(!write(wakeUpDescriptor.load(), &stopWork, 1));
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

Watch::Watch(std::function<void()> stop, std::function<std::string(std::size_t)> line, Display display)
    : m_stop(std::move(stop)), m_line(std::move(line)), m_display(display)
{
    Expected<Pipe> pipe = makePipe();
    if (!pipe)
        throw std::system_error(pipe.error().code, "pipe");
    m_wakeUp = std::move(*pipe);
    wakeUpDescriptor = m_wakeUp.write.number();
    m_thread = std::thread(&Watch::run, this);
    handleStops(true);
}

Watch::~Watch()
{
    handleStops(false);
    static_cast<void>(!write(m_wakeUp.write.number(), &endWatch, 1));
    m_thread.join();
}

void Watch::run()
{
    const bool draws = m_display == Display::shown;
    for (;;) {
        pollfd wait{m_wakeUp.read.number(), POLLIN, 0};
        const int ready = poll(&wait, 1, draws ? milliseconds : -1);
        char message = 0;
        if (ready > 0 && read(m_wakeUp.read.number(), &message, 1) == 1) {
            if (message == endWatch)
                break;
            m_stop();
        } else if (draws) {
            draw();
        }
    }
    if (draws)
        writeToTerminal(clearLine);
}

void Watch::draw()
{
    // The last column stays free: some terminals break the line when it is written to.
    writeToTerminal(std::string(clearLine) + m_line(Console::errorColumns() - 1));
}

std::string lineWithPath(const std::string &figures, std::string_view path, std::size_t columns)
{
    const std::size_t taken = displayWidth(figures) + 2;
    if (taken >= columns)
        return elided(figures, columns);
    return figures + "  " + elidedAtFront(formatPath(path, PathGuard::home()), columns - taken);
}

} // namespace corvane
