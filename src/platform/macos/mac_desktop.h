#pragma once

#include "platform/desktop.h"

namespace corvane {

/// The desktop through the workspace. Main thread only.
class MacDesktop final : public Desktop {
public:
    [[nodiscard]] Expected<void> reveal(const std::string &path, FailureHandler failed) override;
    [[nodiscard]] Expected<void> openUrl(const std::string &url) override;
    void activateApplication() override;
    void log(std::string_view message) override;
    [[nodiscard]] std::shared_ptr<void> keepAtFullSpeed(std::string_view reason) override;
    [[nodiscard]] bool prefersReducedMotion() override;
};

} // namespace corvane
