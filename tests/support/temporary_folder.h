#pragma once

#include <cerrno>
#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>
#include <system_error>
#include <vector>

#include <fcntl.h>
#include <spawn.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

extern char **environ;

namespace corvane {

/// A new folder in the system's temporary folder. The destructor removes it with its contents, including folders
/// without permissions and trees thousands of levels deep. Paths are relative to the folder; missing parent folders are
/// created. A failure throws, which fails the test.
///
/// In containers tests often run as root, and root can read every folder: check `canMakeUnreadable()`, and skip with
/// the reason if it returns false.
class TemporaryFolder {
public:
    TemporaryFolder()
    {
        // Resolved, so that paths compare equal to those the system returns.
        std::string pattern =
            (std::filesystem::canonical(std::filesystem::temp_directory_path()) / "corvane-test-XXXXXX");
        check(::mkdtemp(pattern.data()) != nullptr, "mkdtemp", pattern);
        m_path = pattern;
    }
    TemporaryFolder(const TemporaryFolder &) = delete;
    TemporaryFolder &operator=(const TemporaryFolder &) = delete;

    ~TemporaryFolder()
    {
        for (const std::string &folder : m_unreadable)
            ::chmod(folder.c_str(), 0700);
        // The system's own tool: it handles trees deeper than the maximum path length, and shares no code with the
        // removal under test.
        std::string tool = "rm", options = "-rf", end = "--", path = m_path;
        char *const arguments[] = {tool.data(), options.data(), end.data(), path.data(), nullptr};
        pid_t child = 0;
        if (::posix_spawn(&child, "/bin/rm", nullptr, nullptr, arguments, environ) == 0)
            ::waitpid(child, nullptr, 0);
    }

    /// Absolute, links resolved, no trailing slash.
    [[nodiscard]] const std::string &path() const { return m_path; }

    /// The absolute path of an item inside.
    [[nodiscard]] std::string operator/(std::string_view relative) const
    {
        return m_path + "/" + std::string(relative);
    }

    /// Creates a folder and its parents; returns its absolute path.
    std::string makeFolder(std::string_view relative) const
    {
        const std::string path = *this / relative;
        std::filesystem::create_directories(path);
        return path;
    }

    /// Writes a file with this text; returns its absolute path.
    std::string writeText(std::string_view relative, std::string_view text) const
    {
        const std::string path = make(relative);
        const Descriptor file(path, O_WRONLY | O_CREAT | O_TRUNC);
        writeAll(file, text, path);
        return path;
    }

    /// Writes a file of `bytes` bytes that are really allocated, so that it occupies `bytes` rounded up to whole blocks
    /// (`blockSize()`); returns its absolute path.
    std::string writeFile(std::string_view relative, std::int64_t bytes) const
    {
        const std::string path = make(relative);
        const Descriptor file(path, O_WRONLY | O_CREAT | O_TRUNC);
#ifdef __linux__
        if (bytes == 0 || ::posix_fallocate(file.number, 0, bytes) == 0)
            return path;
#endif
        const std::string block(64 * 1024, 'x');
        for (std::int64_t left = bytes; left > 0; left -= static_cast<std::int64_t>(block.size()))
            writeAll(file, std::string_view(block).substr(0, static_cast<std::size_t>(left)), path);
        return path;
    }

    /// Creates a file of this length without allocated blocks; returns its absolute path.
    std::string writeSparse(std::string_view relative, std::int64_t length) const
    {
        const std::string path = make(relative);
        const Descriptor file(path, O_WRONLY | O_CREAT | O_TRUNC);
        check(::ftruncate(file.number, length) == 0, "ftruncate", path);
        return path;
    }

    /// Creates a symbolic link with exactly this target; returns its absolute path.
    std::string link(std::string_view relative, const std::string &target) const
    {
        const std::string path = make(relative);
        check(::symlink(target.c_str(), path.c_str()) == 0, "symlink", path);
        return path;
    }

    /// Creates a hard link to an existing file; returns its absolute path.
    std::string hardLink(std::string_view relative, std::string_view existing) const
    {
        const std::string path = make(relative);
        check(::link((*this / existing).c_str(), path.c_str()) == 0, "link", path);
        return path;
    }

    /// Whether removing a folder's permissions locks this process out: not for root.
    [[nodiscard]] static bool canMakeUnreadable()
    {
        return ::geteuid() != 0;
    }

    /// Creates a folder if necessary and removes all its permissions; returns its absolute path.
    std::string makeUnreadable(std::string_view relative)
    {
        std::string path = makeFolder(relative);
        check(::chmod(path.c_str(), 0) == 0, "chmod", path);
        m_unreadable.push_back(path);
        return path;
    }

    /// Sets the modification time of an item (of a link itself) in seconds since 1970.
    void setModified(std::string_view relative, std::int64_t seconds) const
    {
        const timespec time{.tv_sec = static_cast<time_t>(seconds), .tv_nsec = 0};
        const timespec times[] = {time, time};
        const std::string path = *this / relative;
        check(::utimensat(AT_FDCWD, path.c_str(), times, AT_SYMLINK_NOFOLLOW) == 0, "utimensat", path);
    }

    /// The allocated bytes of the item itself, as reported by the system.
    [[nodiscard]] std::int64_t allocated(std::string_view relative) const
    {
        const std::string path = *this / relative;
        struct stat facts {};
        check(::lstat(path.c_str(), &facts) == 0, "lstat", path);
        return static_cast<std::int64_t>(facts.st_blocks) * 512;
    }

    /// The allocation unit of this folder's file system, in bytes.
    [[nodiscard]] std::int64_t blockSize() const
    {
        struct stat facts {};
        check(::stat(m_path.c_str(), &facts) == 0, "stat", m_path);
        return static_cast<std::int64_t>(facts.st_blksize);
    }

    /// Whether an item with this name exists; does not follow links.
    [[nodiscard]] bool has(std::string_view relative) const
    {
        struct stat facts {};
        return ::lstat((*this / relative).c_str(), &facts) == 0;
    }

private:
    struct Descriptor {
        Descriptor(const std::string &path, int flags) : number(::open(path.c_str(), flags | O_CLOEXEC, 0600))
        {
            check(number >= 0, "open", path);
        }
        Descriptor(const Descriptor &) = delete;
        Descriptor &operator=(const Descriptor &) = delete;
        ~Descriptor() { ::close(number); }
        const int number;
    };

    static void check(bool succeeded, const char *operation, const std::string &path)
    {
        if (!succeeded)
            throw std::system_error(errno, std::generic_category(), operation + (" " + path));
    }

    static void writeAll(const Descriptor &file, std::string_view bytes, const std::string &path)
    {
        while (!bytes.empty()) {
            const ssize_t written = ::write(file.number, bytes.data(), bytes.size());
            check(written > 0, "write", path);
            bytes.remove_prefix(static_cast<std::size_t>(written));
        }
    }

    [[nodiscard]] std::string make(std::string_view relative) const
    {
        std::string path = *this / relative;
        std::filesystem::create_directories(std::filesystem::path(path).parent_path());
        return path;
    }

    std::string m_path;
    std::vector<std::string> m_unreadable;
};

} // namespace corvane
