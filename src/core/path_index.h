#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

#include "core/file_node.h"

namespace corvane {

/// Finds the nodes of one tree by path. Stores no paths and owns no nodes: it hashes and compares through the nodes, at
/// 15 bytes each if the capacity was reserved, and is dropped together with its tree. Not thread-safe.
class PathIndex {
public:
    PathIndex() = default;
    PathIndex(PathIndex &&other) noexcept; ///< leaves the other one empty
    PathIndex &operator=(PathIndex &&other) noexcept;
    PathIndex(const PathIndex &) = delete;
    PathIndex &operator=(const PathIndex &) = delete;

    void reserve(std::size_t count);
    /// Inserts the node, replacing one with the same path.
    void insert(FileNode &node);
    /// The node at the path (bytes), or null.
    [[nodiscard]] FileNode *find(std::string_view path) const;
    /// Erases the node and every node below it.
    void eraseSubtree(const FileNode &node);
    [[nodiscard]] std::size_t size() const { return m_size; }

private:
    void erase(const FileNode &node);
    void place(FileNode &node);
    void rebuild(std::size_t capacity);
    [[nodiscard]] std::size_t next(std::size_t slot) const;

    std::vector<std::uint32_t> m_tags; // half of the hash; 0 free, 1 erased
    std::vector<FileNode *> m_nodes;   // same positions
    std::size_t m_size = 0;
    std::size_t m_used = 0; // including erased slots
};

} // namespace corvane
