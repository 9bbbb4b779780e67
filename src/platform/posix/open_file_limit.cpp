#include "platform/open_file_limit.h"

#include <algorithm>

#include <sys/resource.h>

namespace corvane {

namespace {

// Enough for hundreds of cores, and within the limit of a Mac.
constexpr rlim_t enough = 8192;

} // namespace

void raiseOpenFileLimit()
{
    rlimit limit{};
    if (::getrlimit(RLIMIT_NOFILE, &limit) != 0 || limit.rlim_cur >= std::min(limit.rlim_max, enough))
        return;
    limit.rlim_cur = std::min(limit.rlim_max, enough);
    (void)::setrlimit(RLIMIT_NOFILE, &limit);
}

std::size_t openFileLimit()
{
    rlimit limit{};
    if (::getrlimit(RLIMIT_NOFILE, &limit) != 0)
        return enough;
    return static_cast<std::size_t>(std::min(limit.rlim_cur, enough));
}

} // namespace corvane
