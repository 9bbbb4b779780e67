#include "platform/posix/real_path.h"

#include <cerrno>
#include <climits>
#include <cstdlib>
#include <memory>
#include <string_view>
#include <vector>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "platform/failure.h"
#include "platform/file_descriptor.h"

namespace corvane {

namespace {

/// Resolves a path that is too long for the system's own function.
class LongRealPath {
public:
    static Expected<std::string> resolve(const std::string &path)
    {
        LongRealPath walk(path);
        while (!walk.m_pending.empty()) {
            if (const int code = walk.step(); code != 0)
                return failure("resolve", path, code);
        }
        return walk.m_resolved.empty() ? "/" : std::move(walk.m_resolved);
    }

private:
    explicit LongRealPath(std::string_view path) { prepend(path); }

    /// Resolves one component; returns 0 or an errno value.
    int step()
    {
        const std::string name = std::move(m_pending.back());
        m_pending.pop_back();
        if (name == "/") {
            m_resolved.clear();
            return goTo(AT_FDCWD, "/");
        }
        if (name == "..") {
            m_resolved.resize(m_resolved.empty() ? 0 : m_resolved.rfind('/'));
            return goTo(m_folder.number(), "..");
        }
        struct stat facts;
        if (::fstatat(m_folder.number(), name.c_str(), &facts, AT_SYMLINK_NOFOLLOW) != 0)
            return errno;
        if (S_ISLNK(facts.st_mode))
            return followLink(name);
        m_resolved.append("/").append(name);
        return m_pending.empty() ? 0 : goTo(m_folder.number(), name.c_str());
    }

    int followLink(const std::string &name)
    {
        constexpr int mostLinks = 40; // the kernel's own limit
        if (++m_links > mostLinks)
            return ELOOP;
        std::string target(PATH_MAX, '\0');
        const ssize_t length = ::readlinkat(m_folder.number(), name.c_str(), target.data(), target.size());
        if (length < 0)
            return errno;
        target.resize(static_cast<std::size_t>(length));
        prepend(target);
        return 0;
    }

    int goTo(int base, const char *name)
    {
        FileDescriptor next(::openat(base, name, O_PATH | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
        if (!next.isOpen())
            return errno;
        m_folder = std::move(next);
        return 0;
    }

    /// Prepends a text's components to the pending ones.
    void prepend(std::string_view text)
    {
        std::vector<std::string> components;
        if (text.starts_with('/'))
            components.emplace_back("/");
        for (std::size_t start = text.find_first_not_of('/'); start != std::string_view::npos;) {
            const std::size_t end = text.find('/', start);
            if (const std::string_view component = text.substr(start, end - start); component != ".")
                components.emplace_back(component);
            start = text.find_first_not_of('/', end);
        }
        m_pending.insert(m_pending.end(), components.rbegin(), components.rend());
    }

    FileDescriptor m_folder;
    std::string m_resolved;             // the path of m_folder; empty for "/"
    std::vector<std::string> m_pending; // components to resolve, the next one last
    int m_links = 0;
};

} // namespace

Expected<std::string> resolvedPath(const std::string &path)
{
    const std::unique_ptr<char, decltype(&std::free)> resolved(::realpath(path.c_str(), nullptr), &std::free);
    if (resolved)
        return std::string(resolved.get());
    if (errno == ENAMETOOLONG && path.starts_with('/'))
        return LongRealPath::resolve(path);
    return failure("resolve", path, errno);
}

} // namespace corvane
