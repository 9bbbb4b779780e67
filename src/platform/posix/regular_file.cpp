#include "platform/posix/regular_file.h"

#include <cerrno>
#include <cstdint>

#include <fcntl.h>
#include <sys/stat.h>

#include "platform/file_descriptor.h"
#include "platform/posix/interrupted_call.h"

namespace corvane {

namespace {

constexpr std::size_t stepSize = 64UL * 1024;

tl::unexpected<Error> failure(const char *operation, const std::string &path, int code)
{
    return tl::unexpected(Error{operation, path, {code, std::generic_category()}, {}});
}

/// The error code for what is not to be read; 0 for what is.
int objectionTo(const struct stat &facts, std::size_t most)
{
    if (!S_ISREG(facts.st_mode))
        return ENOTSUP;
    return static_cast<std::uintmax_t>(facts.st_size) > most ? EFBIG : 0;
}

} // namespace

Expected<std::string> readRegularFile(int folder, const char *name, const std::string &path, std::size_t most)
{
    struct stat facts {};
    // Before it is opened: opening alone sets some devices going.
    if (::fstatat(folder, name, &facts, 0) != 0)
        return failure("open", path, errno);
    if (const int objection = objectionTo(facts, most); objection != 0)
        return failure("read", path, objection);
    // Something else may lie there by now; a pipe that nobody writes to would keep a plain open waiting.
    const FileDescriptor file(
        uninterrupted([&] { return ::openat(folder, name, O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY); }));
    if (!file.isOpen() || ::fstat(file.number(), &facts) != 0)
        return failure("open", path, errno);
    if (const int objection = objectionTo(facts, most); objection != 0)
        return failure("read", path, objection);

    // Some file systems tell no size.
    std::string bytes;
    while (bytes.size() <= most) {
        const std::size_t size = bytes.size();
        bytes.resize(size + stepSize);
        const ssize_t count = uninterrupted([&] { return ::read(file.number(), bytes.data() + size, stepSize); });
        if (count < 0)
            return failure("read", path, errno);
        bytes.resize(size + static_cast<std::size_t>(count));
        if (count == 0)
            return bytes;
    }
    return failure("read", path, EFBIG);
}

} // namespace corvane
