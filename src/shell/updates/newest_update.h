#pragma once

#include <optional>
#include <vector>

#include <QString>
#include <tl/expected.hpp>

#include "shell/updates/appcast.h"
#include "shell/updates/update_failure.h"

namespace corvane {

/// What an update must fit.
struct UpdateSystem {
    QString name;         ///< "linux", "macos"
    QString architecture; ///< "x86_64", "arm64"
    /// That of the system; nothing where it is not known, which fits every minimum.
    std::optional<DottedVersion> version;

    /// The system that the program runs on. On Linux the version is the kernel's: those of distributions cannot be
    /// compared with each other.
    [[nodiscard]] static UpdateSystem ofThisMachine();
};

/// The newest version of a feed that the system can run; nothing when the running one is as new. Refused where there is
/// none for this system, where all are older than the running one, and where the newest is not signed or not to be
/// fetched over https.
[[nodiscard]] tl::expected<std::optional<AppcastItem>, UpdateFailure> newestUpdate(
    const std::vector<AppcastItem> &items, const DottedVersion &running, const UpdateSystem &system);

} // namespace corvane
