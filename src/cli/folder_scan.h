#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "cli/console.h"
#include "cli/exit_status.h"
#include "cli/path_argument.h"
#include "core/file_node.h"
#include "core/scan_summary.h"
#include "platform/host.h"

namespace corvane {

/// A folder scanned for a command: the tree, and how the scan went.
struct FolderScan {
    std::shared_ptr<FileNode> root;
    double seconds = 0;
    bool isCancelled = false;     ///< Ctrl-C: the tree is a part of the folder
    std::int64_t denied = 0;      ///< folders inside that could not be opened
    std::string unreadableReason; ///< why the folder itself could not be listed; empty where it could
    std::optional<ScanSummary> summary;

    enum class Extent { tree, treeAndSummary };

    /// Scans the folder at an absolute path, showing progress on a terminal and minding Ctrl-C. Where the scan could
    /// not go on, a sentence that says why, and no tree whose figures would be wrong.
    [[nodiscard]] static Judged<FolderScan> run(const std::string &path, Extent extent, const Console &console,
                                                FileSystem &files);

    /// Names on standard error what kept the result from being whole, unless the result on the same terminal
    /// says so already.
    [[nodiscard]] ExitStatus report(Console &console, bool resultSaysSo) const;
};

/// The words for a result of a scan that was stopped.
inline constexpr std::string_view stoppedText = "Scan stopped — showing partial results";

} // namespace corvane
