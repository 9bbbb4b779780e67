#include "platform/linux/long_path.h"

#include <cerrno>
#include <climits>
#include <string_view>

#include <fcntl.h>

#include "platform/failure.h"

namespace corvane {

Expected<LongPath> LongPath::resolve(const std::string &path)
{
    LongPath result;
    std::string_view rest = path;
    if (rest.size() >= PATH_MAX) // thousands of trailing slashes mean the same as one
        rest = rest.substr(0, rest.find_last_not_of('/') + 2);
    while (rest.size() >= PATH_MAX) {
        const std::size_t slash = rest.rfind('/', PATH_MAX - 2);
        if (slash == std::string_view::npos || slash == 0)
            return failure("resolve", path, ENAMETOOLONG);
        const std::string leading(rest.substr(0, slash));
        FileDescriptor next(::openat(result.folder(), leading.c_str(), O_PATH | O_DIRECTORY | O_CLOEXEC));
        if (!next.isOpen())
            return failure("resolve", path, errno);
        result.m_folder = std::move(next);
        rest.remove_prefix(rest.find_first_not_of('/', slash));
    }
    result.m_name = rest;
    return result;
}

int LongPath::folder() const
{
    return m_folder.isOpen() ? m_folder.number() : AT_FDCWD;
}

} // namespace corvane
