#pragma once

#include <fcntl.h>
#include <sys/resource.h>
#include <unistd.h>

namespace corvane {

/// As long as it lives, this process may have only `more` files open besides those that are.
class FewOpenFiles {
public:
    explicit FewOpenFiles(rlim_t more)
    {
        ::getrlimit(RLIMIT_NOFILE, &m_before);
        // The lowest free number: those above it that are taken do not count, for only new ones are refused.
        const int next = ::open("/", O_RDONLY | O_CLOEXEC);
        ::close(next);
        rlimit limit = m_before;
        limit.rlim_cur = static_cast<rlim_t>(next) + more;
        ::setrlimit(RLIMIT_NOFILE, &limit);
    }
    FewOpenFiles(const FewOpenFiles &) = delete;
    FewOpenFiles &operator=(const FewOpenFiles &) = delete;
    ~FewOpenFiles() { ::setrlimit(RLIMIT_NOFILE, &m_before); }

private:
    rlimit m_before{};
};

} // namespace corvane
