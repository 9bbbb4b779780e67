#include "platform/posix/real_path.h"

#include <cerrno>
#include <cstdlib>
#include <memory>

#include "platform/failure.h"

namespace corvane {

Expected<std::string> resolvedPath(const std::string &path)
{
    const std::unique_ptr<char, decltype(&std::free)> resolved(::realpath(path.c_str(), nullptr), &std::free);
    if (!resolved)
        return failure("resolve", path, errno);
    return std::string(resolved.get());
}

} // namespace corvane
