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
    std::string id;                               ///< a UUID, made when the group is built
    std::int64_t size = 0;                        ///< allocated bytes of each file, as the scan found them
    std::vector<std::shared_ptr<FileNode>> files; ///< at least two, newest first
    std::vector<FileStatus> seen;                 ///< of the same files, when they were compared

    /// The space of every copy but one: size × (number of files − 1).
    [[nodiscard]] std::int64_t waste() const;

    /// The same without the copies that are another name of a file counted already: removing one of those frees
    /// nothing.
    [[nodiscard]] std::int64_t reclaimable() const;

    /// For each file, the first one before it that is the same file on the disk under another name.
    [[nodiscard]] std::vector<std::optional<std::size_t>> sharedStorage() const;
};

/// The space that all groups waste.
[[nodiscard]] std::int64_t totalReclaimable(std::span<const DuplicateGroup> groups);

} // namespace corvane
