#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "core/file_node.h"
#include "core/scan_progress.h"
#include "platform/host.h"

namespace corvane {

/// Walks a folder into a tree of allocated sizes. Holds no state; a walk uses several threads near the top.
struct Scanner {
    /// Files of fewer allocated bytes get no node: they are folded into their folder's totals.
    static constexpr std::int64_t smallFileLimit = 1'000'000;

    /// Folders that are never entered, by their whole path: other volumes, what the system shows twice, and
    /// what is no disk space at all. `systemVirtualFolders()` joins them.
    static constexpr std::array<std::string_view, 7> skipPaths{"/System/Volumes", "/Volumes",        "/dev",  "/net",
                                                               "/home",           "/private/var/vm", "/cores"};

    /// The tree of a finished or cancelled walk of the folder at `path` (absolute bytes). Blocks; never fails:
    /// a root that cannot be listed comes back `unreadable`.
    [[nodiscard]] static std::shared_ptr<FileNode> scan(const std::string &path, ScanProgress &progress,
                                                        FileSystem &files = systemHost().files);
};

} // namespace corvane
