#pragma once

#include <functional>
#include <memory>
#include <span>
#include <vector>

#include "core/file_node.h"
#include "core/stop_flag.h"
#include "duplicates/duplicate_group.h"
#include "platform/host.h"

namespace corvane {

/// Finds files with the same contents: first by size, then by the SHA-256 fingerprint of a part, last by that of the
/// whole. Blocks; any thread. Reads one file at a time.
struct DuplicateFinder {
    /// Called on the thread of the search with how far it is, from 0 to 1, in steps of at least a hundredth.
    using Progress = std::function<void(double)>;

    /// The groups among the nodes that are files, the most wasteful first. A file that cannot be opened or read takes
    /// no part. Once stopped, the groups found so far.
    [[nodiscard]] static std::vector<DuplicateGroup> find(std::span<const std::shared_ptr<FileNode>> nodes,
                                                          const Progress &progress,
                                                          FileSystem &files = systemHost().files,
                                                          const StopFlag &stop = neverStopped);
};

} // namespace corvane
