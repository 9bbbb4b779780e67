#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/time.h"

namespace corvane {

/// A snapshot of the start-up disk that the system keeps on the disk itself, identified by its name.
struct LocalSnapshot {
    std::string name;         ///< as the system lists it, begins with "com.apple"
    std::optional<Time> date; ///< when it was taken, if the name carries it (in local time)

    friend bool operator==(const LocalSnapshot &, const LocalSnapshot &) = default;

    /// The snapshots of a listing, in its order; nothing for text that is not UTF-8.
    [[nodiscard]] static std::vector<LocalSnapshot> parse(std::string_view listing);
};

} // namespace corvane
