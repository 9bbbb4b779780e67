#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "cli/arguments.h"
#include "cli/console.h"
#include "cli/exit_status.h"
#include "cli/json_writer.h"
#include "cli/path_argument.h"
#include "core/file_node.h"
#include "core/scan_filter.h"
#include "core/scan_summary.h"
#include "platform/host.h"

namespace corvane {

/// A folder scanned for a command: the tree, and how the scan went.
struct FolderScan {
    std::shared_ptr<FileNode> root;
    double seconds = 0;
    bool isCancelled = false;     ///< Ctrl-C: the tree is a part of the folder
    std::int64_t denied = 0;      ///< folders inside that could not be opened
    std::int64_t leftOut = 0;     ///< items inside that the filter's patterns match
    std::string unreadableReason; ///< why the folder itself could not be listed; empty where it could
    std::optional<ScanSummary> summary;
    ScanFilter filter;

    enum class Extent { tree, treeAndSummary };

    /// Scans the folder at an absolute path, showing progress on a terminal and minding Ctrl-C. Where the scan could
    /// not go on, a sentence that says why, and no tree whose figures would be wrong.
    [[nodiscard]] static Judged<FolderScan> run(const std::string &path, Extent extent, const Console &console,
                                                FileSystem &files, const ScanFilter &filter = {});

    /// Scans the folders given as arguments one after another, as their options say; none where one of them is no
    /// folder. Once one is stopped, the rest is not begun. Complains, and gives what the program ends with, where
    /// there is nothing to show.
    [[nodiscard]] static tl::expected<std::vector<FolderScan>, ExitStatus> ofArguments(const Arguments &arguments,
                                                                                       Extent extent, Console &console,
                                                                                       FileSystem &files);

    /// The filter that the options ask for.
    [[nodiscard]] static ScanFilter filterOf(const Arguments &arguments);

    /// What is taken by commands that scan folders.
    [[nodiscard]] static std::vector<Option> excludeOptions();
    [[nodiscard]] static Option apparentOption();

    /// Names on standard error what kept the result from being whole, unless the result on the same terminal
    /// says so already.
    [[nodiscard]] ExitStatus report(Console &console, bool resultSaysSo) const;
};

/// The same of several.
[[nodiscard]] ExitStatus report(std::span<const FolderScan> scans, Console &console, bool resultSaysSo);

/// What the figures of scans with one filter do not count, a line each for people.
[[nodiscard]] std::vector<std::string> filterNotes(std::span<const FolderScan> scans);

/// The same as a member of an object; nothing where all is counted as usual.
void writeFilter(std::span<const FolderScan> scans, JsonWriter &json);

/// The files of several folders, the largest first. One that lies in two of them is there once.
[[nodiscard]] std::vector<std::shared_ptr<FileNode>> filesOf(std::span<const FolderScan> scans);

/// The words for a result of a scan that was stopped.
inline constexpr std::string_view stoppedText = "Scan stopped — showing partial results";

} // namespace corvane
