#pragma once

#include <cstdint>
#include <cstdlib>

namespace corvane {

/// The sum of two byte counts. No disk overflows 63 bits, so an overflow is a bug of ours and aborts rather than
/// continuing with a wrong figure.
[[nodiscard]] inline std::int64_t checkedAdd(std::int64_t a, std::int64_t b)
{
    std::int64_t sum = 0;
    if (__builtin_add_overflow(a, b, &sum))
        std::abort();
    return sum;
}

/// The difference of two byte counts; aborts on overflow in the same way.
[[nodiscard]] inline std::int64_t checkedSubtract(std::int64_t a, std::int64_t b)
{
    std::int64_t difference = 0;
    if (__builtin_sub_overflow(a, b, &difference))
        std::abort();
    return difference;
}

} // namespace corvane
