#include "platform/thread_use.h"

#include <sys/resource.h>
#include <sys/time.h>

namespace corvane {

ThreadUse threadUse()
{
    rusage use{};
    if (::getrusage(RUSAGE_THREAD, &use) != 0)
        return {};
    const auto duration = [](const timeval &time) {
        return std::chrono::seconds(time.tv_sec) + std::chrono::microseconds(time.tv_usec);
    };
    return {duration(use.ru_utime) + duration(use.ru_stime), use.ru_nvcsw};
}

} // namespace corvane
