#pragma once

#include <atomic>
#include <cstdint>

namespace corvane {

/// No disk holds as much (288 PB), and the few sums that are made of sums up to it stay far within 63 bits.
inline constexpr std::int64_t foreignSumLimit = std::int64_t{1} << 58;

/// Whether a figure that comes from outside can be one of bytes on a disk.
[[nodiscard]] constexpr bool isPlausibleSize(std::int64_t figure)
{
    return figure >= 0 && figure <= foreignSumLimit;
}

/// Adds a figure that comes from outside, where file systems and tools report what they like. False, with the sum as it
/// was, where the two cannot be added up: the figure's source then counts as unreadable.
[[nodiscard]] constexpr bool addForeign(std::int64_t &sum, std::int64_t figure)
{
    if (!isPlausibleSize(figure) || figure > foreignSumLimit - sum)
        return false;
    sum += figure;
    return true;
}

/// The same where several threads add to one sum.
[[nodiscard]] inline bool addForeign(std::atomic<std::int64_t> &sum, std::int64_t figure)
{
    std::int64_t before = sum.load(std::memory_order_relaxed);
    std::int64_t after = 0;
    do {
        after = before;
        if (!addForeign(after, figure))
            return false;
    } while (!sum.compare_exchange_weak(before, after, std::memory_order_relaxed));
    return true;
}

/// Adds such figures up, each beside the others that make up one result.
class ForeignSum {
public:
    /// The figure; 0 where it cannot be added to those before.
    [[nodiscard]] std::int64_t counted(std::int64_t figure) { return addForeign(m_sum, figure) ? figure : 0; }

private:
    std::int64_t m_sum = 0;
};

} // namespace corvane
