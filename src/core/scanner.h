#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "core/detached_call.h"
#include "core/file_node.h"
#include "core/scan_filter.h"
#include "core/scan_progress.h"
#include "platform/host.h"

namespace corvane {

/// Walks a folder into a tree of allocated sizes. Holds no state; a walk uses several threads near the top.
struct Scanner {
    /// Files of fewer allocated bytes get no node: they are folded into their folder's totals.
    static constexpr std::int64_t smallFileLimit = 1'000'000;

    /// Of folders inside one folder and files with nodes of their own, at most so many: a folder that holds more, which
    /// may have no end, counts as one that cannot be read. Files without nodes take no memory and may be as many as
    /// there are.
    static constexpr std::size_t keptEntriesLimit = 2'000'000;

    /// Folders of a Mac that are never entered, by their whole path: other volumes, what the system shows twice, and
    /// what is no disk space at all. `ScanBounds` knows what holds for one walk.
    static constexpr std::array<std::string_view, 7> skipPaths{"/System/Volumes", "/Volumes",        "/dev",  "/net",
                                                               "/home",           "/private/var/vm", "/cores"};

    /// The tree of a finished or cancelled walk of the folder at `path` (absolute bytes). Blocks; never fails:
    /// a root that cannot be listed comes back `unreadable`. Where the walk could not go on, `progress` has a failure.
    /// Once cancelled it ends within a second, also where a file system in another program or behind a network does
    /// not answer; `files` must outlive what was asked of that one.
    [[nodiscard]] static std::shared_ptr<FileNode> scan(const std::string &path, ScanProgress &progress,
                                                        FileSystem &files = systemHost().files,
                                                        const ScanFilter &filter = {});

    /// How long a scan waits for an answer; `progress` must live as long.
    [[nodiscard]] static Waiting waiting(ScanProgress &progress);
};

} // namespace corvane
