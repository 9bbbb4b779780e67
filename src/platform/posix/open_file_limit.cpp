#include "platform/open_file_limit.h"

#include <algorithm>

#include <sys/resource.h>

namespace corvane {

void raiseOpenFileLimit()
{
    // Enough for hundreds of cores, and no more than a Mac grants.
    constexpr rlim_t enough = 8192;
    rlimit limit{};
    if (::getrlimit(RLIMIT_NOFILE, &limit) != 0 || limit.rlim_cur >= std::min(limit.rlim_max, enough))
        return;
    limit.rlim_cur = std::min(limit.rlim_max, enough);
    (void)::setrlimit(RLIMIT_NOFILE, &limit);
}

} // namespace corvane
