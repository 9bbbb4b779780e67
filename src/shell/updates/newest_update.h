#pragma once

#include <optional>
#include <vector>

#include <QString>
#include <tl/expected.hpp>

#include "shell/updates/appcast.h"
#include "shell/updates/update_failure.h"

namespace corvane {

/// The system that an update must support.
struct UpdateSystem {
    QString name;         ///< "linux", "macos"
    QString architecture; ///< "x86_64", "arm64"
    /// The system's version; nullopt if unknown, which satisfies every minimum.
    std::optional<DottedVersion> version;

    /// The running system. On Linux the version is the kernel's, because distribution versions are not comparable with
    /// each other.
    [[nodiscard]] static UpdateSystem ofThisMachine();
};

/// The newest version in a feed that the system can run; nullopt if the running version is up to date. Fails if there
/// is none for this system, if all are older than the running one, and if the newest is unsigned or not served over
/// https.
[[nodiscard]] tl::expected<std::optional<AppcastItem>, UpdateFailure> newestUpdate(
    const std::vector<AppcastItem> &items, const DottedVersion &running, const UpdateSystem &system);

} // namespace corvane
