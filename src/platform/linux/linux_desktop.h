#pragma once

#include <gio/gio.h>

#include "platform/desktop.h"
#include "platform/linux/glib_pointer.h"

namespace corvane {

/// The desktop through freedesktop.org interfaces. Main thread only; slow operations (a file manager that has to start
/// first) run on a separate thread and also log their failures.
class LinuxDesktop final : public Desktop {
public:
    LinuxDesktop() = default;
    LinuxDesktop(const LinuxDesktop &) = delete;
    LinuxDesktop &operator=(const LinuxDesktop &) = delete;
    ~LinuxDesktop() override; ///< cancels pending requests

    /// Success means that the request has been started. Fails at once if nothing exists at the path.
    [[nodiscard]] Expected<void> reveal(const std::string &path, FailureHandler failed) override;

    [[nodiscard]] Expected<void> openUrl(const std::string &url) override;

    /// Does nothing: on Linux a program with a window is a regular one.
    void activateApplication() override {}

    void log(std::string_view message) override;
    [[nodiscard]] bool prefersReducedMotion() override;

private:
    const GObjectPointer<GCancellable> m_cancel{g_cancellable_new()};
    GThreadPool *m_reveals = nullptr; // created on first use; one thread, so that items are shown in order
};

} // namespace corvane
