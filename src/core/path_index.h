#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

#include "core/file_node.h"

namespace corvane {

/// Finds the nodes of one tree by path. Holds no path and owns no node: it hashes and compares through the
/// nodes, about 20 bytes each, and is dropped together with its tree. Not for two threads at once.
class PathIndex {
public:
    PathIndex() = default;
    PathIndex(PathIndex &&) noexcept = default;
    PathIndex &operator=(PathIndex &&) noexcept = default;
    PathIndex(const PathIndex &) = delete;
    PathIndex &operator=(const PathIndex &) = delete;

    void reserve(std::size_t count);
    void insert(FileNode &node);
    /// The node at the path (bytes), or null.
    [[nodiscard]] FileNode *find(std::string_view path) const;
    /// Forgets the node and every node beneath it.
    void eraseSubtree(const FileNode &node);
    [[nodiscard]] std::size_t size() const { return m_size; }

private:
    void erase(const FileNode &node);
    void grow(std::size_t capacity);

    std::vector<std::uint32_t> m_tags;   // the hash's upper half; 0 free, 1 erased
    std::vector<FileNode *> m_nodes;     // same positions
    std::size_t m_size = 0;
    std::size_t m_used = 0;              // with the erased ones
};

} // namespace corvane
