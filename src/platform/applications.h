#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "platform/time.h"

namespace corvane {

/// What tells the processes of an application from others. A system goes by some of it; what is empty tells nothing.
struct ProgramMarks {
    std::string bundleID;
    std::string bundlePath;
    std::string flatpak; ///< its identifier where it is a Flatpak
    std::string snap;    ///< its name where it is a Snap
    /// The files that it runs, and folders all of whose programs are its own: absolute paths without links.
    std::vector<std::string> programs = {};
};

/// The applications of the system, as far as it knows of them by itself.
class Applications {
public:
    virtual ~Applications() = default;

    /// The instances of an application that run now, each by a number that stays its own while it runs. Main thread
    /// only.
    [[nodiscard]] virtual std::vector<std::int64_t> running(const ProgramMarks &app) = 0;

    /// Asks one of those instances to quit, politely; does not wait, and does nothing where it is gone. Main thread
    /// only.
    virtual void requestQuit(std::int64_t instance, const ProgramMarks &app) = 0;

    /// When the user last opened the bundle, where the system remembers. Any thread.
    [[nodiscard]] virtual std::optional<Time> lastUsed(const std::string &bundlePath) = 0;
};

} // namespace corvane
