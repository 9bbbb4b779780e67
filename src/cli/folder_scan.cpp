#include "cli/folder_scan.h"

#include <chrono>

#include <fmt/format.h>

#include "cleanup/dev_junk_rule.h"
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

Judged<FolderScan> FolderScan::run(const std::string &path, Extent extent, const Console &console, FileSystem &files)
{
    using Clock = std::chrono::steady_clock;

    FolderScan scan;
    ScanProgress progress;
    const Clock::time_point start = Clock::now();
    {
        const auto display = console.canShowProgress() ? ScanWatch::Display::shown : ScanWatch::Display::hidden;
        const ScanWatch watch(progress, display);
        scan.root = Scanner::scan(path, progress, files);
        if (const std::optional<Error> failure = progress.failure())
            return tl::unexpected(fmt::format("cannot scan {}: {}", path, scanFailureText(*failure)));
        scan.isCancelled = progress.isCancelled();
        scan.denied = progress.counters().denied;
        StoppableFiles scanned(files, path, Scanner::waiting(progress));
        if (extent == Extent::treeAndSummary)
            scan.summary = ScanSummary::make(scan.root, DevJunkRule::match, scanned);
        if (scan.root->unreadable)
            scan.unreadableReason = whyUnreadable(path, scanned);
    }
    scan.seconds = std::chrono::duration<double>(Clock::now() - start).count();
    return scan;
}

ExitStatus FolderScan::report(Console &console, bool resultSaysSo) const
{
    if (!unreadableReason.empty())
        console.complain(fmt::format("cannot read {}: {}", root->path(), unreadableReason));
    if (isCancelled && !(resultSaysSo && console.outIsTerminal()))
        console.complain(stoppedText);
    return isCancelled || !unreadableReason.empty() ? ExitStatus::doneWithFailures : ExitStatus::done;
}

} // namespace corvane
