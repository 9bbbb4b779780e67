#pragma once

#include "platform/applications.h"

namespace corvane {

/// Running applications as the workspace knows them, by identifier; an instance is known by its process number. The
/// date of the last use is Spotlight's.
class MacApplications final : public Applications {
public:
    [[nodiscard]] std::vector<std::int64_t> running(const ProgramMarks &app) override;
    void requestQuit(std::int64_t instance, const ProgramMarks &app) override;
    [[nodiscard]] std::optional<Time> lastUsed(const std::string &bundlePath) override;
};

} // namespace corvane
