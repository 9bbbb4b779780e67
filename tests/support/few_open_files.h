#pragma once

#include <fcntl.h>
#include <sys/resource.h>
#include <unistd.h>

namespace corvane {

/// While this object lives, the process can open only `more` files in addition to those already open.
class FewOpenFiles {
public:
    explicit FewOpenFiles(rlim_t more)
    {
        ::getrlimit(RLIMIT_NOFILE, &m_before);
        // The lowest free descriptor: the limit only refuses new descriptors, so higher ones in use do not count.
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
