#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace corvane {

/// What the system reports of a volume in one request; what it does not report is absent.
struct VolumeFacts {
    std::optional<std::string> name;
    std::optional<std::int64_t> total;                    ///< bytes
    std::optional<std::int64_t> available;                ///< bytes
    std::optional<std::int64_t> availableForImportantUse; ///< bytes, purgeable space included

    friend bool operator==(const VolumeFacts &, const VolumeFacts &) = default;
};

/// The capacities of volumes. May be asked from any thread.
class Volumes {
public:
    virtual ~Volumes() = default;

    /// The volume that holds the path; every field absent when the request fails.
    [[nodiscard]] virtual VolumeFacts facts(const std::string &path) = 0;
};

} // namespace corvane
