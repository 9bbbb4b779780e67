#include "platform/thread_use.h"

#include <ctime>

namespace corvane {

ThreadUse threadUse()
{
    // macOS does not report how often a single thread waited, so a preempted thread looks like a waiting one. The
    // effect on the number of threads on a busy Mac is untested.
    return {std::chrono::nanoseconds(::clock_gettime_nsec_np(CLOCK_THREAD_CPUTIME_ID)), {}};
}

} // namespace corvane
