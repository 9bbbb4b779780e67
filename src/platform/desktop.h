#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "platform/error.h"

namespace corvane {

/// What the desktop around the program does for it. Main thread only.
class Desktop {
public:
    virtual ~Desktop() = default;

    /// Told of what failed after the call had returned. Called once or never, on any thread.
    using FailureHandler = std::function<void(const Error &)>;

    /// Shows the item in the file manager, selected; where that cannot be done, opens its folder. Success may mean
    /// that the request is under way; what goes wrong later is handed to `failed`, the path being the item's.
    [[nodiscard]] virtual Expected<void> reveal(const std::string &path, FailureHandler failed) = 0;

    /// Opens an address in the program that handles it.
    [[nodiscard]] virtual Expected<void> openUrl(const std::string &url) = 0;

    /// Makes the program a normal one with a menu bar and brings its window to the front.
    virtual void activateApplication() = 0;

    /// Writes a line to the system's log.
    virtual void log(std::string_view message) = 0;

    /// As long as the result lives, the system does not slow the program down while its window is hidden; `reason` is
    /// for its tools to show. Null where the system slows no program down, or does not let itself be asked.
    [[nodiscard]] virtual std::shared_ptr<void> keepAtFullSpeed(std::string_view /*reason*/) { return nullptr; }

    /// Whether the user asked the system for less movement on the screen.
    [[nodiscard]] virtual bool prefersReducedMotion() = 0;
};

} // namespace corvane
