#include "platform/linux/linux_applications.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <climits>
#include <csignal>
#include <memory>
#include <string_view>

#include <dirent.h>
#include <fcntl.h>
#include <sys/syscall.h>
#include <sys/types.h>
#include <unistd.h>

#include "platform/file_descriptor.h"
#include "platform/linux/process_number.h"
#include "platform/linux/real_path.h"
#include "platform/path.h"
#include "platform/posix/interrupted_call.h"

namespace corvane {

namespace {

/// The numbers after a field's name in the text of a "status" file; empty where there is no such field.
std::string_view statusField(std::string_view status, std::string_view name)
{
    for (std::size_t start = 0; start < status.size();) {
        const std::size_t end = std::min(status.find('\n', start), status.size());
        std::string_view line = status.substr(start, end - start);
        if (line.starts_with(name)) {
            line.remove_prefix(name.size());
            return line.substr(std::min(line.find_first_not_of(" \t"), line.size()));
        }
        start = end + 1;
    }
    return {};
}

std::string_view firstOf(std::string_view numbers)
{
    return numbers.substr(0, numbers.find_first_of(" \t"));
}

/// A process by its folder in "/proc". Held open, the folder remains that process's: once the process has ended,
/// reading fails, whoever has its number by then.
class Process {
public:
    explicit Process(const std::string &name)
        : m_folder(::open(("/proc/" + name).c_str(), O_PATH | O_DIRECTORY | O_CLOEXEC))
    {
    }

    /// Whether it is a process of this user and its executable lies beneath a folder, given without links.
    [[nodiscard]] bool isOursAndRunsFrom(const std::string &folder) const
    {
        // That of a deleted executable ends in " (deleted)"; the folders on its way are told as ever.
        std::array<char, PATH_MAX> executable{};
        const ssize_t length = ::readlinkat(m_folder.number(), "exe", executable.data(), executable.size());
        return length > 0 && liesBeneath({executable.data(), static_cast<std::size_t>(length)}, folder) &&
               firstOf(statusField(status(), "Uid:")) == std::to_string(::getuid());
    }

    /// Whether it has one number only. In a namespace of processes it has one there and another one outside.
    [[nodiscard]] bool hasOneNumber() const
    {
        const std::string text = status();
        const std::string_view numbers = statusField(text, "NSpid:");
        return firstOf(numbers) == numbers;
    }

private:
    [[nodiscard]] std::string status() const
    {
        constexpr std::size_t longest = 65536; // with thousands of groups
        std::string text(longest, '\0');
        const FileDescriptor file(::openat(m_folder.number(), "status", O_RDONLY | O_CLOEXEC));
        const ssize_t length = uninterrupted([&] { return ::read(file.number(), text.data(), text.size()); });
        text.resize(length > 0 ? static_cast<std::size_t>(length) : 0);
        return text;
    }

    const FileDescriptor m_folder;
};

/// The numbers in "/proc" are those that the kernel takes from this program. In a sandbox with processes of its own,
/// "/proc" may still be the one outside, where the numbers belong to others.
bool areNumbersOurs()
{
    return Process("self").hasOneNumber();
}

/// Where the executables of a bundle lie, without links; empty where nothing can. A link that is called like a bundle
/// may lead to any folder, the home for one, whose programs are none of its own.
std::string executablesFolder(const std::string &bundlePath)
{
    const Expected<std::string> real = resolvedPath(bundlePath);
    return real && nameExtension(lastPathComponent(*real)) == "app" ? *real : std::string();
}

} // namespace

std::vector<std::int64_t> LinuxApplications::running(const std::string & /*bundleID*/, const std::string &bundlePath)
{
    const std::string folder = executablesFolder(bundlePath);
    const auto close = [](DIR *listing) { ::closedir(listing); };
    const std::unique_ptr<DIR, decltype(close)> processes(::opendir("/proc"));
    if (folder.empty() || !processes || !areNumbersOurs())
        return {};
    std::vector<std::int64_t> instances;
    while (const dirent *entry = ::readdir(processes.get())) {
        const pid_t number = processNumber(entry->d_name);
        if (number > 0 && number != ::getpid() && Process(entry->d_name).isOursAndRunsFrom(folder))
            instances.push_back(number);
    }
    return instances;
}

void LinuxApplications::requestQuit(std::int64_t instance, const std::string & /*bundleID*/,
                                    const std::string &bundlePath)
{
    const std::string folder = executablesFolder(bundlePath);
    const auto number = static_cast<pid_t>(instance);
    if (folder.empty() || number != instance || number <= 0 || number == ::getpid() || !areNumbersOurs())
        return;
    const Process process(std::to_string(number));
    const FileDescriptor handle(static_cast<int>(::syscall(SYS_pidfd_open, number, 0)));
    const bool kernelHasHandles = handle.isOpen() || errno != ENOSYS;
    // Looked at with the handle open: as long as the process is there nobody else has its number, so that the handle
    // is its own.
    if (!process.isOursAndRunsFrom(folder))
        return;
    if (handle.isOpen())
        ::syscall(SYS_pidfd_send_signal, handle.number(), SIGTERM, nullptr, 0);
    else if (!kernelHasHandles)
        ::kill(number, SIGTERM);
}

} // namespace corvane
