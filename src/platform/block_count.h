#pragma once

#include <cstdint>
#include <optional>

namespace corvane {

/// The bytes of as many blocks as a file system reports; absent where that is nonsense: fewer than none, or more than
/// a size can hold. A file system in user space reports what it likes.
template <typename Count>
[[nodiscard]] std::optional<std::int64_t> bytesOfBlocks(Count blocks, std::uint64_t blockSize)
{
    std::int64_t product = 0;
    if (__builtin_mul_overflow(blocks, blockSize, &product) || product < 0)
        return std::nullopt;
    return product;
}

} // namespace corvane
