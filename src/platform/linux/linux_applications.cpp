#include "platform/linux/linux_applications.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <climits>
#include <csignal>
#include <functional>
#include <string_view>
#include <utility>

#include <fcntl.h>
#include <sys/syscall.h>
#include <sys/types.h>
#include <unistd.h>

#include "platform/file_descriptor.h"
#include "platform/linux/folder_names.h"
#include "platform/linux/pid_from.h"
#include "platform/path.h"
#include "platform/posix/real_path.h"
#include "platform/posix/regular_file.h"
#include "platform/text.h"

namespace corvane {

namespace {

/// The numbers after a field's name in a "status" file; empty if there is no such field.
std::string_view statusField(std::string_view status, std::string_view name)
{
    while (!status.empty()) {
        std::string_view line = takeLine(status);
        if (line.starts_with(name)) {
            line.remove_prefix(name.size());
            return line.substr(std::min(line.find_first_not_of(" \t"), line.size()));
        }
    }
    return {};
}

std::string_view firstOf(std::string_view numbers)
{
    return numbers.substr(0, numbers.find_first_of(" \t"));
}

/// Calls `take` with each part of a delimited text until it returns true; returns whether one did.
bool anyPart(std::string_view text, char mark, const std::function<bool(std::string_view)> &take)
{
    while (!text.empty()) {
        if (take(takePart(text, mark)))
            return true;
    }
    return false;
}

/// A process, by its folder in "/proc". An open folder stays bound to its process: after the process has ended, reading
/// fails even if its PID is reused.
class Process {
public:
    Process(const std::string &processes, const std::string &name)
        : m_folder(::open(joined(processes, name).c_str(), O_PATH | O_DIRECTORY | O_CLOEXEC))
    {
    }

    [[nodiscard]] bool isOurs() const { return firstOf(statusField(status(), "Uid:")) == std::to_string(::getuid()); }

    /// Links resolved; empty if unknown.
    [[nodiscard]] std::string executable() const
    {
        constexpr std::string_view deleted = " (deleted)";
        std::array<char, PATH_MAX> path{};
        const ssize_t length = ::readlinkat(m_folder.number(), "exe", path.data(), path.size());
        std::string_view text(path.data(), length > 0 ? static_cast<std::size_t>(length) : 0);
        if (text.ends_with(deleted))
            text.remove_suffix(deleted.size());
        return std::string(text);
    }

    /// The text of a file in its folder; empty if implausibly long.
    [[nodiscard]] std::string text(const char *name) const
    {
        constexpr std::size_t longest = 1024UL * 1024;
        return RegularFile::open(m_folder.number(), name, name, LinkRule::refuse)
            .and_then([&](const auto &file) { return file->readAll(longest); })
            .value_or(std::string());
    }

    /// Whether it has only one PID. A process in a PID namespace has one inside and another outside.
    [[nodiscard]] bool hasOneNumber() const
    {
        const std::string text = status();
        const std::string_view numbers = statusField(text, "NSpid:");
        return firstOf(numbers) == numbers;
    }

private:
    [[nodiscard]] std::string status() const { return text("status"); }

    const FileDescriptor m_folder;
};

/// Whether PIDs in "/proc" are valid in this program's PID namespace. In a sandbox with its own namespace, "/proc" may
/// still be the outer one, where the numbers refer to other processes.
bool areNumbersOurs(const std::string &processes)
{
    return Process(processes, "self").hasOneNumber();
}

/// The folder of a bundle's executables, links resolved; empty if there can be none. A link named like a bundle may
/// point to any folder, such as the home folder, whose programs do not belong to the application.
std::string executablesFolder(const std::string &bundlePath)
{
    const Expected<std::string> real = resolvedPath(bundlePath);
    return real && nameExtension(lastPathComponent(*real)) == "app" ? *real : std::string();
}

/// Matches the processes of an application.
class ProcessRule {
public:
    explicit ProcessRule(const ProgramMarks &app)
        : m_folder(executablesFolder(app.bundlePath)), m_flatpak(app.flatpak), m_snap(app.snap)
    {
        for (const std::string &program : app.programs) {
            // Ignore folders such as "/usr", which contain programs of many applications.
            if (containingFolder(program).size() > 1)
                m_programs.push_back(program);
        }
    }

    [[nodiscard]] bool isEmpty() const
    {
        return m_folder.empty() && m_flatpak.empty() && m_snap.empty() && m_programs.empty();
    }

    [[nodiscard]] bool covers(const Process &process) const
    {
        return (runsIt(process) || (!m_flatpak.empty() && isOfFlatpak(process)) ||
                (!m_snap.empty() && isInGroup(process, "snap." + m_snap + ".", {}))) &&
               process.isOurs();
    }

private:
    [[nodiscard]] bool runsIt(const Process &process) const
    {
        if (m_folder.empty() && m_programs.empty())
            return false;
        const std::string executable = process.executable();
        if (executable.empty())
            return false;
        if (!m_folder.empty() && liesBeneath(executable, m_folder))
            return true;
        const auto isIt = [&](const std::string &program) { return isOrLiesBeneath(executable, program); };
        return std::ranges::any_of(m_programs, isIt) || isFromImage(process, executable);
    }

    /// An AppImage runs from its mount point and passes its own path to its processes in a variable. Processes that
    /// they start inherit the variable, but run from elsewhere.
    [[nodiscard]] bool isFromImage(const Process &process, const std::string &executable) const
    {
        constexpr std::string_view key = "APPIMAGE=";
        if (executable.find("/.mount_") == std::string::npos)
            return false;
        return anyPart(process.text("environ"), '\0', [&](std::string_view variable) {
            return variable.starts_with(key) &&
                   std::ranges::find(m_programs, variable.substr(key.size())) != m_programs.end();
        });
    }

    [[nodiscard]] bool isOfFlatpak(const Process &process) const
    {
        if (isInGroup(process, "app-flatpak-" + m_flatpak + "-", ".scope"))
            return true;
        // Without systemd there is no such group. A Flatpak's processes have a PID namespace of their own.
        return !process.hasOneNumber() && anyPart(process.text("root/.flatpak-info"), '\n',
                                                  [&](std::string_view line) { return line == "name=" + m_flatpak; });
    }

    /// Whether one of its control groups matches; a "-" between the two parts would mean another application.
    [[nodiscard]] static bool isInGroup(const Process &process, std::string_view start, std::string_view end)
    {
        std::string groups = process.text("cgroup");
        constexpr std::string_view escapedDash = "\\x2d";
        for (std::size_t at = 0; (at = groups.find(escapedDash, at)) != std::string::npos; ++at)
            groups.replace(at, escapedDash.size(), "-");
        std::ranges::replace(groups, '\n', '/');
        return anyPart(groups, '/', [&](std::string_view name) {
            if (!name.starts_with(start) || !name.ends_with(end) || name.size() <= start.size() + end.size())
                return false;
            const std::string_view rest = name.substr(start.size(), name.size() - start.size() - end.size());
            return end.empty() || rest.find('-') == std::string_view::npos;
        });
    }

    const std::string m_folder;
    const std::string m_flatpak;
    const std::string m_snap;
    std::vector<std::string> m_programs;
};

} // namespace

std::vector<std::int64_t> LinuxApplications::running(const ProgramMarks &app)
{
    const ProcessRule rule(app);
    FileDescriptor processes(::open(m_processes.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (rule.isEmpty() || !processes.isOpen() || !areNumbersOurs(m_processes))
        return {};
    std::vector<std::int64_t> instances;
    forEachName(std::move(processes), [&](const char *name) {
        const pid_t number = pidFrom(name);
        if (number > 0 && number != ::getpid() && rule.covers(Process(m_processes, name)))
            instances.push_back(number);
    });
    return instances;
}

void LinuxApplications::requestQuit(std::int64_t instance, const ProgramMarks &app)
{
    const ProcessRule rule(app);
    const auto number = static_cast<pid_t>(instance);
    if (rule.isEmpty() || number != instance || number <= 0 || number == ::getpid() || !areNumbersOurs(m_processes))
        return;
    const Process process(m_processes, std::to_string(number));
    const FileDescriptor handle(static_cast<int>(::syscall(SYS_pidfd_open, number, 0)));
    const bool kernelHasHandles = handle.isOpen() || errno != ENOSYS;
    // Check after opening the handle: while the process exists, its PID is not reused, so the handle refers to it.
    if (!rule.covers(process))
        return;
    if (handle.isOpen())
        ::syscall(SYS_pidfd_send_signal, handle.number(), SIGTERM, nullptr, 0);
    else if (!kernelHasHandles)
        ::kill(number, SIGTERM);
}

} // namespace corvane
