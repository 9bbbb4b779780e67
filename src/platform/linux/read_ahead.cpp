#include "platform/posix/read_ahead.h"

#include <fcntl.h>

namespace corvane {

void readAhead(int file, std::int64_t offset, std::int64_t length)
{
    static_cast<void>(::posix_fadvise(file, offset, length, POSIX_FADV_WILLNEED));
}

} // namespace corvane
