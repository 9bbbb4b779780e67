#pragma once

#include "platform/applications.h"

namespace corvane {

/// Applications as processes: an instance is a process of this user whose executable lies inside the bundle, and is
/// known by its process number. One whose executable has been deleted meanwhile counts by the place where it was. When
/// a bundle was last used is nothing that a Linux file system records: always absent.
class LinuxApplications final : public Applications {
public:
    [[nodiscard]] std::vector<std::int64_t> running(const std::string &bundleID,
                                                    const std::string &bundlePath) override;
    /// Looks again at the process that has the number, which may be another one by now.
    void requestQuit(std::int64_t instance, const std::string &bundleID, const std::string &bundlePath) override;
    [[nodiscard]] std::optional<Time> lastUsed(const std::string & /*bundlePath*/) override { return std::nullopt; }
};

} // namespace corvane
