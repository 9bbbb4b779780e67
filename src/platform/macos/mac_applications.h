#pragma once

#include "platform/applications.h"

namespace corvane {

/// Running applications from the workspace, by bundle identifier; an instance is identified by PID. The date of last
/// use comes from Spotlight.
class MacApplications final : public Applications {
public:
    [[nodiscard]] std::vector<std::int64_t> running(const ProgramMarks &app) override;
    void requestQuit(std::int64_t instance, const ProgramMarks &app) override;
    [[nodiscard]] std::optional<Time> lastUsed(const std::string &bundlePath) override;
};

} // namespace corvane
