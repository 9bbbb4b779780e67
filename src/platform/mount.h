#pragma once

#include <cstdint>
#include <optional>

namespace corvane {

/// The mounted file system that an open folder belongs to. A folder that is mounted a second time elsewhere lies
/// on the same device there, so the device alone does not tell where one mount ends.
class Mount {
public:
    /// Absent where the system does not answer. A descriptor that only names the folder will do.
    [[nodiscard]] static std::optional<Mount> of(int descriptor);

    /// By the number of the mount, or by the device where the system tells no number.
    [[nodiscard]] bool isSameAs(const Mount &other) const;

private:
    std::optional<std::uint64_t> m_number;
    std::uint64_t m_device = 0;
};

} // namespace corvane
