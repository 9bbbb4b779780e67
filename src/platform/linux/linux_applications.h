#pragma once

#include <string>
#include <utility>

#include "platform/applications.h"

namespace corvane {

/// Applications as processes: an instance is a process of this user, identified by PID, whose executable is inside the
/// bundle or is one of the programs, or which runs in the sandbox of the Flatpak or Snap. Of an AppImage, the
/// processes that run from its mount point count. A process whose executable was deleted is matched by its former path.
/// Linux does not record when a bundle was last used: always absent.
class LinuxApplications final : public Applications {
public:
    /// `processes` is the path of procfs.
    explicit LinuxApplications(std::string processes = "/proc") : m_processes(std::move(processes)) {}

    [[nodiscard]] std::vector<std::int64_t> running(const ProgramMarks &app) override;
    /// Checks the process with that PID again, since the PID may have been reused.
    void requestQuit(std::int64_t instance, const ProgramMarks &app) override;
    [[nodiscard]] std::optional<Time> lastUsed(const std::string & /*bundlePath*/) override { return std::nullopt; }

private:
    const std::string m_processes;
};

} // namespace corvane
