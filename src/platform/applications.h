#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "platform/time.h"

namespace corvane {

/// The applications of the system, as far as it knows of them by itself.
class Applications {
public:
    virtual ~Applications() = default;

    /// The instances of an application that run now, each by a number that stays its own while it runs. A system goes
    /// by the identifier or by where the program lies. Main thread only.
    [[nodiscard]] virtual std::vector<std::int64_t> running(const std::string &bundleID,
                                                            const std::string &bundlePath) = 0;

    /// Asks one of those instances to quit, politely; does not wait, and does nothing where it is gone. Main thread
    /// only.
    virtual void requestQuit(std::int64_t instance, const std::string &bundleID, const std::string &bundlePath) = 0;

    /// When the user last opened the bundle, where the system remembers. Any thread.
    [[nodiscard]] virtual std::optional<Time> lastUsed(const std::string &bundlePath) = 0;
};

} // namespace corvane
