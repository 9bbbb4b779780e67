#include "platform/posix/pipe.h"

#include <array>

#include <fcntl.h>
#include <unistd.h>

#include "platform/failure.h"

namespace corvane {

Expected<Pipe> makePipe()
{
    std::array<int, 2> ends{};
#ifdef __linux__
    if (::pipe2(ends.data(), O_CLOEXEC) != 0)
        return failure("pipe", {});
#else
    if (::pipe(ends.data()) != 0)
        return failure("pipe", {});
    ::fcntl(ends[0], F_SETFD, FD_CLOEXEC);
    ::fcntl(ends[1], F_SETFD, FD_CLOEXEC);
#endif
    return Pipe{FileDescriptor(ends[0]), FileDescriptor(ends[1])};
}

} // namespace corvane
