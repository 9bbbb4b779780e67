#include "cli/stop_signal.h"

#include <csignal>

namespace corvane {

namespace {

StopFlag isStopped = false;
static_assert(StopFlag::is_always_lock_free, "used in a signal handler");

extern "C" void noteStop(int)
{
    isStopped = true;
}

void handleStops(void (*handler)(int), int flags)
{
    struct sigaction action {};
    sigemptyset(&action.sa_mask);
    action.sa_handler = handler;
    action.sa_flags = flags;
    sigaction(SIGINT, &action, nullptr);
    sigaction(SIGTERM, &action, nullptr);
}

} // namespace

StopSignal::StopSignal()
{
    isStopped = false;
    // The default comes back with the first signal: the second ends a program that does not stop.
    handleStops(noteStop, static_cast<int>(SA_RESTART | static_cast<int>(SA_RESETHAND)));
}

StopSignal::~StopSignal()
{
    handleStops(SIG_DFL, 0);
}

const StopFlag &StopSignal::flag()
{
    return isStopped;
}

} // namespace corvane
