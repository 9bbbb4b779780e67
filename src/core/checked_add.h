#pragma once

#include <cstdint>
#include <cstdlib>

namespace corvane {

/// The sum of two byte counts. A disk that overflows 63 bits does not exist, so an overflow is a mistake of
/// this program and stops it rather than going on with a wrong figure.
[[nodiscard]] inline std::int64_t checkedAdd(std::int64_t a, std::int64_t b)
{
    std::int64_t sum = 0;
    if (__builtin_add_overflow(a, b, &sum))
        std::abort();
    return sum;
}

/// The difference of two byte counts, under the same rule.
[[nodiscard]] inline std::int64_t checkedSubtract(std::int64_t a, std::int64_t b)
{
    std::int64_t difference = 0;
    if (__builtin_sub_overflow(a, b, &difference))
        std::abort();
    return difference;
}

} // namespace corvane
