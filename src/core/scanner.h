#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>

#include "core/detached_call.h"
#include "core/file_node.h"
#include "core/scan_filter.h"
#include "core/scan_progress.h"
#include "core/systems/mac_places.h"
#include "platform/host.h"

namespace corvane {

/// Walks a folder into a tree of allocated sizes. Stateless; a walk uses several threads.
struct Scanner {
    /// Files of fewer allocated bytes get no node: they are folded into their folder's totals.
    static constexpr std::int64_t smallFileLimit = 1'000'000;

    /// The maximum number of subfolders and of files with nodes in one folder: a folder that exceeds it may have no
    /// end, and counts as unreadable. Files without nodes take no memory and are not limited.
    static constexpr std::size_t keptEntriesLimit = 2'000'000;

    /// Folders of a Mac that are never entered, by full path.
    static constexpr auto skipPaths = mac_places::skippedFolders;

    /// The tree of a finished or cancelled walk of the folder at `path` (absolute bytes). Blocks; never fails: a root
    /// that cannot be listed is returned as `unreadable`. If the walk could not continue, `progress` has a failure. A
    /// cancelled walk ends within a second, even if a FUSE or network file system does not answer; `files` must outlive
    /// the calls abandoned in that case.
    [[nodiscard]] static std::shared_ptr<FileNode> scan(const std::string &path, ScanProgress &progress,
                                                        FileSystem &files = systemHost().files,
                                                        const ScanFilter &filter = {});

    /// How long a scan waits for an answer; `progress` must outlive the result.
    [[nodiscard]] static Waiting waiting(ScanProgress &progress);
};

} // namespace corvane
