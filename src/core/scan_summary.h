#pragma once

#include <cstdint>
#include <memory>
#include <vector>

#include "core/dev_junk_item.h"
#include "core/file_node.h"
#include "core/path_index.h"
#include "core/type_slice.h"
#include "platform/host.h"

namespace corvane {

/// What the screens need from a finished scan, derived in one pass. Computed off the main thread.
struct ScanSummary {
    std::vector<std::shared_ptr<FileNode>> allFiles; ///< files and large packages, largest first
    std::vector<DevJunkItem> devJunk;                ///< largest first
    PathIndex index;                                 ///< every node of the tree
    std::int64_t unreadableCount = 0;

    /// Packages of fewer bytes are not listed among the files.
    static constexpr std::int64_t smallestListedPackage = 1'000'000;

    /// `buildFolders` is called for folders outside packages and outside other build folders.
    [[nodiscard]] static ScanSummary make(const std::shared_ptr<FileNode> &root, DevJunkMatch buildFolders,
                                          FileSystem &files = systemHost().files);

    /// The size per file type, largest first, without types of 0 bytes.
    [[nodiscard]] static std::vector<TypeSlice> types(const FileNode &root);
};

} // namespace corvane
