#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <vector>

#include "core/file_node.h"
#include "core/file_type.h"

namespace corvane {

/// The total bytes of the files of one type.
struct TypeSlice {
    FileType type;
    std::int64_t size = 0;

    friend bool operator==(const TypeSlice &, const TypeSlice &) = default;
};

/// The total bytes per file type of the items in a tree. A package counts as one item.
class TypeSizes {
public:
    TypeSizes() = default;
    explicit TypeSizes(std::span<const TypeSlice> slices);

    void add(FileType type, std::int64_t size);
    /// Adds or subtracts every item of a tree whose root is in no package.
    void add(const FileNode &root);
    void subtract(const FileNode &root);

    /// Largest first, without types of 0 bytes.
    [[nodiscard]] std::vector<TypeSlice> slices() const;

private:
    std::array<std::int64_t, FileType::count> m_sizes{};
};

} // namespace corvane
