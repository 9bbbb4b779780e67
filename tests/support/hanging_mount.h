#pragma once

#include <array>
#include <atomic>
#include <cerrno>
#include <csignal>
#include <cstring>
#include <new>
#include <string>
#include <utility>

#include <fcntl.h>
#include <linux/fuse.h>
#include <sys/mman.h>
#include <sys/mount.h>
#include <sys/prctl.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace corvane {

/// A file system served by a child process, mounted on a folder until this is destroyed. Its root can be examined and
/// opened, but listing it never ends. The child exits with this process, however that ends, which also ends all blocked
/// calls: a call blocked on a file system served by its own process could never be interrupted.
class HangingMount {
public:
    explicit HangingMount(std::string folder) : m_folder(std::move(folder))
    {
        const int device = ::open("/dev/fuse", O_RDWR | O_CLOEXEC);
        if (device < 0)
            return;
        const std::string options = "fd=" + std::to_string(device) + ",rootmode=40000,user_id=0,group_id=0";
        m_isMounted = ::mount("test", m_folder.c_str(), "fuse", MS_NOSUID | MS_NODEV, options.data()) == 0;
        if (m_isMounted) {
            m_child = ::fork();
            if (m_child == 0) {
                ::prctl(PR_SET_PDEATHSIG, SIGKILL);
                serve(device);
            }
        }
        ::close(device);
    }
    ~HangingMount()
    {
        if (m_child > 0) {
            ::kill(m_child, SIGKILL);
            ::waitpid(m_child, nullptr, 0);
        }
        if (m_isMounted)
            ::umount2(m_folder.c_str(), MNT_DETACH);
        ::munmap(m_isBeingListed, sizeof *m_isBeingListed);
    }
    HangingMount(const HangingMount &) = delete;
    HangingMount &operator=(const HangingMount &) = delete;

    /// False if this process is not allowed to mount.
    [[nodiscard]] bool isMounted() const { return m_isMounted && m_child > 0; }
    /// Whether a thread is waiting for the listing.
    [[nodiscard]] bool isBeingListed() const { return *m_isBeingListed; }

private:
    [[noreturn]] void serve(int device) const
    {
        std::array<char, 64 * 1024> buffer{};
        while (::read(device, buffer.data(), buffer.size()) >= static_cast<ssize_t>(sizeof(fuse_in_header))) {
            fuse_in_header request{};
            std::memcpy(&request, buffer.data(), sizeof request);
            answer(device, request);
        }
        ::_exit(0);
    }

    void answer(int device, const fuse_in_header &request) const
    {
        switch (request.opcode) {
        case FUSE_INIT: {
            fuse_init_out init{};
            init.major = FUSE_KERNEL_VERSION;
            init.minor = FUSE_KERNEL_MINOR_VERSION;
            init.max_write = 4096;
            reply(device, request, init);
            break;
        }
        case FUSE_GETATTR: {
            fuse_attr_out facts{};
            facts.attr.ino = request.nodeid;
            facts.attr.mode = S_IFDIR | 0755;
            facts.attr.nlink = 2;
            reply(device, request, facts);
            break;
        }
        case FUSE_OPENDIR:
            reply(device, request, fuse_open_out{});
            break;
        case FUSE_READDIR:
        case FUSE_READDIRPLUS:
            *m_isBeingListed = true;
            break;
        case FUSE_FORGET:
        case FUSE_BATCH_FORGET:
        case FUSE_INTERRUPT:
            break; // nothing waits for a reply
        default: {
            const fuse_out_header refusal{sizeof refusal, -ENOSYS, request.unique};
            static_cast<void>(!::write(device, &refusal, sizeof refusal));
            break;
        }
        }
    }

    template <typename Body>
    static void reply(int device, const fuse_in_header &request, const Body &body)
    {
        struct {
            fuse_out_header header;
            Body body;
        } answer{{sizeof answer, 0, request.unique}, body};
        static_cast<void>(!::write(device, &answer, sizeof answer));
    }

    const std::string m_folder;
    bool m_isMounted = false;
    pid_t m_child = 0;
    // Shared with the child.
    std::atomic<bool> *const m_isBeingListed =
        new (::mmap(nullptr, sizeof(std::atomic<bool>), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0))
            std::atomic<bool>(false);
};

} // namespace corvane
