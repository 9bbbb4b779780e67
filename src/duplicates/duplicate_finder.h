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

/// Finds files with identical contents: compares those of the same allocated size, first by the SHA-256 fingerprint of
/// their ends, then by that of the whole file. Does not find a copy that occupies another amount of space, such as a
/// sparse or compressed one: the nodes of a scan hold no other size. Blocks; any thread. Reads one file at a time.
struct DuplicateFinder {
    /// Called on the search thread with the progress from 0 to 1, in steps of at least 0.01.
    using Progress = std::function<void(double)>;

    /// The groups among those nodes that are files, most wasteful first. Skips files that cannot be opened or read.
    /// When stopped, the groups found so far.
    [[nodiscard]] static std::vector<DuplicateGroup> find(std::span<const std::shared_ptr<FileNode>> nodes,
                                                          const Progress &progress,
                                                          FileSystem &files = systemHost().files,
                                                          const StopFlag &stop = neverStopped);
};

} // namespace corvane
