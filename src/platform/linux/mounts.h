#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "platform/error.h"

namespace corvane {

/// The mounted file system that an open folder belongs to. A folder that is mounted a second time elsewhere lies
/// on the same device there, so the device alone does not tell where one mount ends.
class Mount {
public:
    /// Absent where the system does not answer. A descriptor that only names the folder (O_PATH) will do.
    [[nodiscard]] static std::optional<Mount> of(int descriptor);

    /// By the number of the mount, or by the device on a kernel older than 5.8, which tells no number.
    [[nodiscard]] bool isSameAs(const Mount &other) const;

private:
    std::optional<std::uint64_t> m_number;
    std::uint64_t m_device = 0;
};

/// Fails, with a sentence for people, where something is mounted on the folder at `path` or anywhere inside it,
/// and where that cannot be told. Any other kind of item passes: the kernel itself keeps such a mount point.
[[nodiscard]] Expected<void> refuseMountPoints(const char *operation, const std::string &path);

/// The failure of an operation that met a mount point.
[[nodiscard]] Error mountedInside(const char *operation, std::string path);

} // namespace corvane
