#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "cli/arguments.h"
#include "cli/console.h"
#include "cli/exit_status.h"
#include "core/file_node.h"
#include "core/path_argument.h"
#include "core/scan_filter.h"
#include "core/scan_summary.h"
#include "platform/host.h"

namespace corvane {

/// The result of scanning a folder for a command: the tree and facts about the scan.
struct FolderScan {
    std::shared_ptr<FileNode> root;
    double seconds = 0;
    bool isCancelled = false;     ///< stopped by Ctrl-C: the tree is incomplete
    std::int64_t denied = 0;      ///< folders inside that could not be opened
    std::int64_t leftOut = 0;     ///< items inside that match the filter's patterns
    std::string unreadableReason; ///< why the folder itself could not be listed; empty if it could
    std::optional<ScanSummary> summary;
    ScanFilter filter;

    enum class Extent { tree, treeAndSummary };

    /// Scans the folder at an absolute path; shows progress on a terminal and handles Ctrl-C. If the scan failed,
    /// returns a sentence with the reason instead of a tree with wrong figures.
    [[nodiscard]] static Judged<FolderScan> run(const std::string &path, Extent extent, const Console &console,
                                                FileSystem &files, const ScanFilter &filter = {});

    /// Scans the folders given as arguments one after another with their options; none if one of them is not a folder.
    /// After one is stopped, the rest is skipped. If there is nothing to show, reports why and returns the exit status.
    [[nodiscard]] static tl::expected<std::vector<FolderScan>, ExitStatus> ofArguments(const Arguments &arguments,
                                                                                       Extent extent, Console &console,
                                                                                       FileSystem &files);
};

} // namespace corvane
