#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "platform/error.h"

namespace corvane {

/// Services of the desktop environment. Main thread only.
class Desktop {
public:
    virtual ~Desktop() = default;

    /// Receives a failure that occurs after the call has returned. Called at most once, on any thread.
    using FailureHandler = std::function<void(const Error &)>;

    /// Shows the item selected in the file manager; if that is not possible, opens its folder. Success may mean that
    /// the request is still running; a later failure is passed to `failed`, with the item's path.
    [[nodiscard]] virtual Expected<void> reveal(const std::string &path, FailureHandler failed) = 0;

    /// Opens a URL in the program that handles it.
    [[nodiscard]] virtual Expected<void> openUrl(const std::string &url) = 0;

    /// Makes the program a regular one with a menu bar and brings its window to the front.
    virtual void activateApplication() = 0;

    /// Writes a line to the system's log.
    virtual void log(std::string_view message) = 0;

    /// While the result exists, the system does not throttle the program when its window is hidden; `reason` is shown
    /// by system tools. Null if the system does not throttle programs, or provides no way to prevent it.
    [[nodiscard]] virtual std::shared_ptr<void> keepAtFullSpeed(std::string_view /*reason*/) { return nullptr; }

    /// Whether the user has enabled reduced motion in the system.
    [[nodiscard]] virtual bool prefersReducedMotion() = 0;
};

} // namespace corvane
