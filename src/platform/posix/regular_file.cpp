#include "platform/posix/regular_file.h"

#include <cerrno>
#include <utility>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "platform/failure.h"
#include "platform/posix/interrupted_call.h"
#include "platform/posix/read_ahead.h"
#include "platform/posix/stat_facts.h"

namespace corvane {

namespace {

constexpr std::size_t stepSize = 64UL * 1024;

} // namespace

Expected<std::unique_ptr<RegularFile>> RegularFile::open(int folder, const char *name, const std::string &path,
                                                         LinkRule rule)
{
    struct stat facts {};
    // Check before opening: some devices react to being opened.
    if (::fstatat(folder, name, &facts, rule == LinkRule::refuse ? AT_SYMLINK_NOFOLLOW : 0) != 0)
        return corvane::failure("open", path, errno);
    if (!S_ISREG(facts.st_mode))
        return corvane::failure("open", path, ENOTSUP);
    // The item may have been replaced since; a plain open would block on a pipe without a writer.
    const int flags = O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY | (rule == LinkRule::refuse ? O_NOFOLLOW : 0);
    FileDescriptor file(uninterrupted([&] { return ::openat(folder, name, flags); }));
    if (!file.isOpen() || ::fstat(file.number(), &facts) != 0)
        return corvane::failure("open", path, errno);
    if (!S_ISREG(facts.st_mode))
        return corvane::failure("open", path, ENOTSUP);
    return std::unique_ptr<RegularFile>(new RegularFile(std::move(file), path));
}

tl::unexpected<Error> RegularFile::failure(const char *operation, int code) const
{
    return corvane::failure(operation, m_path, code);
}

Expected<FileStatus> RegularFile::status()
{
    struct stat facts {};
    if (::fstat(m_file.number(), &facts) != 0)
        return failure("examine", errno);
    return FileStatus{.length = facts.st_size, .modified = modificationTime(facts), .identity = identityOf(facts)};
}

Expected<std::size_t> RegularFile::read(std::int64_t offset, std::span<std::byte> buffer)
{
    std::size_t filled = 0;
    while (filled < buffer.size()) {
        const std::span<std::byte> rest = buffer.subspan(filled);
        const ssize_t count = uninterrupted([&] {
            return ::pread(m_file.number(), rest.data(), rest.size(),
                           static_cast<off_t>(offset) + static_cast<off_t>(filled));
        });
        if (count < 0)
            return failure("read", errno);
        if (count == 0)
            break;
        filled += static_cast<std::size_t>(count);
    }
    return filled;
}

void RegularFile::willRead(std::int64_t offset, std::int64_t length)
{
    readAhead(m_file.number(), offset, length);
}

Expected<std::string> RegularFile::readAll(std::size_t most)
{
    const Expected<FileStatus> now = status();
    if (!now)
        return tl::unexpected(now.error());
    if (static_cast<std::uintmax_t>(now->length) > most)
        return failure("read", EFBIG);
    // Some file systems report no size.
    std::string bytes;
    while (bytes.size() <= most) {
        const std::size_t size = bytes.size();
        bytes.resize(size + stepSize);
        const auto count =
            read(static_cast<std::int64_t>(size), std::as_writable_bytes(std::span(bytes)).subspan(size));
        if (!count)
            return tl::unexpected(count.error());
        bytes.resize(size + *count);
        if (*count < stepSize)
            return bytes.size() > most ? Expected<std::string>(failure("read", EFBIG)) : bytes;
    }
    return failure("read", EFBIG);
}

} // namespace corvane
