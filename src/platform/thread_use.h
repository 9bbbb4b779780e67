#pragma once

#include <chrono>
#include <cstdint>
#include <optional>

namespace corvane {

/// What the calling thread has had of the machine since it started.
struct ThreadUse {
    std::chrono::nanoseconds processor{0};
    std::optional<std::int64_t> waits; ///< how often it gave its core up to wait; absent where the system does not tell
};

/// All zeros where the system does not tell. Costs about a microsecond.
[[nodiscard]] ThreadUse threadUse();

} // namespace corvane
