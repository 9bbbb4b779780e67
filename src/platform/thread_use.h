#pragma once

#include <chrono>
#include <cstdint>
#include <optional>

namespace corvane {

/// Resources used by the calling thread since it started.
struct ThreadUse {
    std::chrono::nanoseconds processor{0};
    std::optional<std::int64_t> waits; ///< voluntary context switches; absent if unknown
};

/// All zeros if unsupported. Costs about a microsecond.
[[nodiscard]] ThreadUse threadUse();

} // namespace corvane
