#pragma once

#include <atomic>
#include <cstdint>

namespace corvane {

/// An upper limit that no disk reaches (288 PB); sums of a few such sums stay well within 63 bits.
inline constexpr std::int64_t foreignSumLimit = std::int64_t{1} << 58;

/// Whether a figure from outside can be a number of bytes on a disk.
[[nodiscard]] constexpr bool isPlausibleSize(std::int64_t figure)
{
    return figure >= 0 && figure <= foreignSumLimit;
}

/// Adds a figure from outside, since file systems and tools may report anything. Returns false and leaves the sum
/// unchanged if the result would be implausible: the source of the figure then counts as unreadable.
[[nodiscard]] constexpr bool addForeign(std::int64_t &sum, std::int64_t figure)
{
    if (!isPlausibleSize(figure) || figure > foreignSumLimit - sum)
        return false;
    sum += figure;
    return true;
}

/// The same for a sum that several threads add to.
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

/// Adds up such figures for one result.
class ForeignSum {
public:
    /// The figure; 0 if it cannot be added to those before it.
    [[nodiscard]] std::int64_t counted(std::int64_t figure) { return addForeign(m_sum, figure) ? figure : 0; }

private:
    std::int64_t m_sum = 0;
};

} // namespace corvane
