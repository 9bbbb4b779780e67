#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "platform/time.h"

namespace corvane {

/// Identifies the processes of an application. Each system uses some of the fields; empty ones are ignored.
struct ProgramMarks {
    std::string bundleID;
    std::string bundlePath;
    std::string flatpak; ///< its application ID if it is a Flatpak
    std::string snap;    ///< its name if it is a Snap
    /// Its executables, and folders that contain only its own programs: absolute paths, links resolved.
    std::vector<std::string> programs = {};
};

/// The applications known to the system. Implemented once per system.
class Applications {
public:
    virtual ~Applications() = default;

    /// The running instances of an application, by ids that stay valid while the instance runs. Main thread only.
    [[nodiscard]] virtual std::vector<std::int64_t> running(const ProgramMarks &app) = 0;

    /// Asks one of those instances to quit; does not wait, and does nothing if it has already ended. Main thread only.
    virtual void requestQuit(std::int64_t instance, const ProgramMarks &app) = 0;

    /// When the user last opened the bundle, if the system records it. Any thread.
    [[nodiscard]] virtual std::optional<Time> lastUsed(const std::string &bundlePath) = 0;
};

} // namespace corvane
