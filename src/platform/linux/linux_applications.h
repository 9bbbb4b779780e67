#pragma once

#include <string>
#include <utility>

#include "platform/applications.h"

namespace corvane {

/// Applications as processes: an instance is a process of this user, known by its process number, whose executable lies
/// inside the bundle or is one of the programs, or that runs in the sandbox of the Flatpak or the Snap. Of an AppImage,
/// the processes that run from where it is mounted count. One whose executable has been deleted meanwhile counts by the
/// place where it was. When a bundle was last used is nothing that a Linux file system records: always absent.
class LinuxApplications final : public Applications {
public:
    /// `processes` is where the kernel shows them.
    explicit LinuxApplications(std::string processes = "/proc") : m_processes(std::move(processes)) {}

    [[nodiscard]] std::vector<std::int64_t> running(const ProgramMarks &app) override;
    /// Looks again at the process that has the number, which may be another one by now.
    void requestQuit(std::int64_t instance, const ProgramMarks &app) override;
    [[nodiscard]] std::optional<Time> lastUsed(const std::string & /*bundlePath*/) override { return std::nullopt; }

private:
    const std::string m_processes;
};

} // namespace corvane
