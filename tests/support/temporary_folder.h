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

/// A fresh folder under the system's temporary folder, removed with everything in it by the destructor,
/// folders without permissions and trees thousands of levels deep included. Paths given to it are relative to
/// the folder; the folders that lead to a new item are made. A failure throws, which fails the test.
///
/// Tests run as root where the machine is a container, and root reads every folder: ask `canMakeUnreadable()`
/// and skip, saying why, where it answers false.
class TemporaryFolder {
public:
    TemporaryFolder()
    {
        // Resolved, so that a path compared with what the system answers is the same text.
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
        // The system's own tool: it knows trees deeper than any path may be long, and shares no code with the
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

    /// Makes a folder and those that lead to it; returns its absolute path.
    std::string makeFolder(std::string_view relative) const
    {
        const std::string path = *this / relative;
        std::filesystem::create_directories(path);
        return path;
    }

    /// Writes a file of that text; returns its absolute path.
    std::string writeText(std::string_view relative, std::string_view text) const
    {
        const std::string path = make(relative);
        const Descriptor file(path, O_WRONLY | O_CREAT | O_TRUNC);
        writeAll(file, text, path);
        return path;
    }

    /// A file whose length is `bytes` and whose space is really taken on the disk, so that it occupies `bytes`
    /// rounded up to whole blocks (`blockSize()`); returns its absolute path.
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

    /// A file of that length that occupies nothing; returns its absolute path.
    std::string writeSparse(std::string_view relative, std::int64_t length) const
    {
        const std::string path = make(relative);
        const Descriptor file(path, O_WRONLY | O_CREAT | O_TRUNC);
        check(::ftruncate(file.number, length) == 0, "ftruncate", path);
        return path;
    }

    /// A symbolic link with that target, word for word; returns its absolute path.
    std::string link(std::string_view relative, const std::string &target) const
    {
        const std::string path = make(relative);
        check(::symlink(target.c_str(), path.c_str()) == 0, "symlink", path);
        return path;
    }

    /// A second name of an existing file; returns its absolute path.
    std::string hardLink(std::string_view relative, std::string_view existing) const
    {
        const std::string path = make(relative);
        check(::link((*this / existing).c_str(), path.c_str()) == 0, "link", path);
        return path;
    }

    /// Whether taking a folder's permissions away keeps this process out: not for root.
    [[nodiscard]] static bool canMakeUnreadable()
    {
        return ::geteuid() != 0;
    }

    /// Makes a folder, if need be, and takes every permission from it; returns its absolute path.
    std::string makeUnreadable(std::string_view relative)
    {
        std::string path = makeFolder(relative);
        check(::chmod(path.c_str(), 0) == 0, "chmod", path);
        m_unreadable.push_back(path);
        return path;
    }

    /// Sets the modification date of an item (of a link itself) to that many seconds since 1970.
    void setModified(std::string_view relative, std::int64_t seconds) const
    {
        const timespec time{.tv_sec = static_cast<time_t>(seconds), .tv_nsec = 0};
        const timespec times[] = {time, time};
        const std::string path = *this / relative;
        check(::utimensat(AT_FDCWD, path.c_str(), times, AT_SYMLINK_NOFOLLOW) == 0, "utimensat", path);
    }

    /// Bytes that an item itself occupies, as the system tells it.
    [[nodiscard]] std::int64_t allocated(std::string_view relative) const
    {
        const std::string path = *this / relative;
        struct stat facts {};
        check(::lstat(path.c_str(), &facts) == 0, "lstat", path);
        return static_cast<std::int64_t>(facts.st_blocks) * 512;
    }

    /// The grain in which this folder's disk hands out space, bytes.
    [[nodiscard]] std::int64_t blockSize() const
    {
        struct stat facts {};
        check(::stat(m_path.c_str(), &facts) == 0, "stat", m_path);
        return static_cast<std::int64_t>(facts.st_blksize);
    }

    /// Whether something has that name, links not followed.
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
