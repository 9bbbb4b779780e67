#include "cli/folder_scan.h"

#include <chrono>

#include <fmt/format.h>

#include "cleanup/dev_junk_rule.h"
#include "cli/scan_options.h"
#include "cli/scan_watch.h"
#include "core/scan_words.h"
#include "core/scanner.h"
#include "core/stoppable_files.h"
#include "core/words/system_words.h"

namespace corvane {

namespace {

std::string whyUnreadable(const std::string &path, FileSystem &files)
{
    const Expected<std::unique_ptr<OpenFolder>> folder = files.openFolder(path);
    if (folder)
        return "the listing failed";
    const Error &error = folder.error();
    const bool isDenied = error.code == std::errc::permission_denied;
    return error.description() + (isDenied ? ownerText(wordsOf(files.systemKind()).deniedTo, path, files) : "");
}

} // namespace

Judged<FolderScan> FolderScan::run(const std::string &path, Extent extent, const Console &console, FileSystem &files,
                                   const ScanFilter &filter)
{
    using Clock = std::chrono::steady_clock;

    FolderScan scan;
    ScanProgress progress;
    const Clock::time_point start = Clock::now();
    {
        const ScanWatch watch(progress, console.progressDisplay());
        scan.root = Scanner::scan(path, progress, files, filter);
        if (const std::optional<Error> failure = progress.failure())
            return tl::unexpected(fmt::format("cannot scan {}: {}", path, scanFailureText(*failure)));
        scan.isCancelled = progress.isCancelled();
        scan.denied = progress.counters().denied;
        scan.leftOut = progress.counters().leftOut;
        scan.filter = filter;
        StoppableFiles scanned(files, path, Scanner::waiting(progress));
        if (extent == Extent::treeAndSummary)
            scan.summary = ScanSummary::make(scan.root, DevJunkRule::match, scanned);
        if (scan.root->unreadable)
            scan.unreadableReason = whyUnreadable(path, scanned);
    }
    scan.seconds = std::chrono::duration<double>(Clock::now() - start).count();
    return scan;
}

tl::expected<std::vector<FolderScan>, ExitStatus> FolderScan::ofArguments(const Arguments &arguments, Extent extent,
                                                                          Console &console, FileSystem &files)
{
    const ScanFilter filter = scanFilterOf(arguments);
    std::vector<std::string> folders;
    for (const std::string &path : arguments.paths) {
        const Judged<std::string> folder = existingFolder(path, files);
        if (!folder) {
            console.complain(folder.error());
            return tl::unexpected(ExitStatus::refused);
        }
        folders.push_back(*folder);
    }
    std::vector<FolderScan> scans;
    for (const std::string &folder : folders) {
        Judged<FolderScan> scan = run(folder, extent, console, files, filter);
        if (!scan) {
            console.complain(scan.error());
            return tl::unexpected(ExitStatus::doneWithFailures);
        }
        scans.push_back(*std::move(scan));
        if (scans.back().isCancelled)
            break;
    }
    return scans;
}

} // namespace corvane
