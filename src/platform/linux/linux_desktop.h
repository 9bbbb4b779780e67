#pragma once

#include <gio/gio.h>

#include "platform/desktop.h"
#include "platform/linux/glib_pointer.h"

namespace corvane {

/// The desktop through freedesktop.org's interfaces. Main thread only; what may take long (a file manager
/// that has to start first) happens on a thread of its own, and its failure also goes to the log.
class LinuxDesktop final : public Desktop {
public:
    LinuxDesktop() = default;
    LinuxDesktop(const LinuxDesktop &) = delete;
    LinuxDesktop &operator=(const LinuxDesktop &) = delete;
    ~LinuxDesktop() override; ///< gives up what has not been shown yet

    /// Success means that the request is under way. Fails at once when nothing is at the path.
    [[nodiscard]] Expected<void> reveal(const std::string &path, FailureHandler failed) override;

    [[nodiscard]] Expected<void> openUrl(const std::string &url) override;

    /// Does nothing: here a window is all that it takes to be a normal program.
    void activateApplication() override {}

    void log(std::string_view message) override;
    [[nodiscard]] bool prefersReducedMotion() override;

private:
    const GObjectPointer<GCancellable> m_cancel{g_cancellable_new()};
    GThreadPool *m_reveals = nullptr; // made at first need; one thread, so that items are shown in order
};

} // namespace corvane
