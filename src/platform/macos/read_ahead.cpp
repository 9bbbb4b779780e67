#include "platform/posix/read_ahead.h"

#include <algorithm>
#include <limits>

#include <fcntl.h>

namespace corvane {

void readAhead(int file, std::int64_t offset, std::int64_t length)
{
    constexpr std::int64_t most = std::numeric_limits<int>::max();
    radvisory advice{.ra_offset = offset, .ra_count = static_cast<int>(std::min(length, most))};
    static_cast<void>(::fcntl(file, F_RDADVISE, &advice));
}

} // namespace corvane
