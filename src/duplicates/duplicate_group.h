#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "core/file_node.h"
#include "platform/file_reader.h"

namespace corvane {

/// Files with the same contents, identified by `id`.
struct DuplicateGroup {
    std::string id;                               ///< a UUID, created with the group
    std::int64_t size = 0;                        ///< allocated bytes of each file, from the scan
    std::vector<std::shared_ptr<FileNode>> files; ///< at least two, newest first
    std::vector<FileStatus> seen;                 ///< status of the same files when they were compared

    /// The size of all copies but one: size × (number of files − 1).
    [[nodiscard]] std::int64_t waste() const;

    /// The same without hard links to a file already counted: removing one of those frees nothing.
    [[nodiscard]] std::int64_t reclaimable() const;

    /// For each file, the first earlier one that is a hard link to the same file.
    [[nodiscard]] std::vector<std::optional<std::size_t>> sharedStorage() const;
};

/// The reclaimable space of all groups.
[[nodiscard]] std::int64_t totalReclaimable(std::span<const DuplicateGroup> groups);

} // namespace corvane
