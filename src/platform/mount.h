#pragma once

#include <cstdint>
#include <optional>

namespace corvane {

/// The mount that an open folder belongs to. A folder mounted twice has the same device in both places, so the device
/// alone does not identify the mount.
class Mount {
public:
    /// Nothing if the system reports none. A descriptor opened with O_PATH is sufficient.
    [[nodiscard]] static std::optional<Mount> of(int descriptor);

    /// Compares mount IDs, or devices if the system has no mount IDs.
    [[nodiscard]] bool isSameAs(const Mount &other) const;

private:
    std::optional<std::uint64_t> m_number;
    std::uint64_t m_device = 0;
};

} // namespace corvane
