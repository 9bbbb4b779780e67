#pragma once

#include <cstdint>
#include <optional>

namespace corvane {

/// The number of bytes in a count of blocks; nothing if the count is negative or the product overflows, since a FUSE
/// file system may report anything.
template <typename Count>
[[nodiscard]] std::optional<std::int64_t> bytesOfBlocks(Count blocks, std::uint64_t blockSize)
{
    std::int64_t product = 0;
    if (__builtin_mul_overflow(blocks, blockSize, &product) || product < 0)
        return std::nullopt;
    return product;
}

} // namespace corvane
