#include "cli/folder_scan.h"

#include <algorithm>
#include <chrono>
#include <functional>

#include <fmt/format.h>
#include <fmt/ranges.h>

#include "cleanup/dev_junk_rule.h"
#include "cli/scan_watch.h"
#include "core/scan_words.h"
#include "core/scanner.h"
#include "core/stoppable_files.h"
#include "core/words/display_text.h"
#include "core/words/figures.h"
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

std::int64_t leftOutOf(std::span<const FolderScan> scans)
{
    std::int64_t count = 0;
    for (const FolderScan &scan : scans)
        count += scan.leftOut;
    return count;
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
    const ScanFilter filter = filterOf(arguments);
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

ScanFilter FolderScan::filterOf(const Arguments &arguments)
{
    ScanFilter filter{.excluded = arguments.texts("exclude")};
    if (std::ranges::find(filter.excluded, "") != filter.excluded.end())
        throw UsageError("\"\" is not a valid --exclude; use a pattern such as \"*.iso\"");
    if (arguments.has("one-file-system"))
        filter.mounts = ScanFilter::Mounts::none;
    if (arguments.has("apparent"))
        filter.sizes = ScanFilter::Sizes::apparent;
    return filter;
}

std::vector<Option> FolderScan::excludeOptions()
{
    return {
        {.name = "exclude",
         .value = "PATTERN",
         .help =
             "Leave out items that match PATTERN, such as \"*.iso\", node_modules or Library/Caches; may be repeated"},
        {.name = "one-file-system", .help = "Leave out everything mounted in the folder"}};
}

Option FolderScan::apparentOption()
{
    return {.name = "apparent", .help = "Count the lengths of files, not the space they take up"};
}

std::vector<std::string> filterNotes(std::span<const FolderScan> scans)
{
    const ScanFilter &filter = scans.front().filter;
    std::vector<std::string> notes;
    if (!filter.excluded.empty())
        notes.push_back(fmt::format("Left out {}: {}", formatCount(leftOutOf(scans), "item", "items"),
                                    displayUtf8(fmt::format("{}", fmt::join(filter.excluded, ", ")))));
    if (filter.mounts == ScanFilter::Mounts::none)
        notes.emplace_back("Left out what is mounted inside");
    if (filter.sizes == ScanFilter::Sizes::apparent)
        notes.emplace_back("Sizes are the lengths of files, not the space that they occupy");
    return notes;
}

void writeFilter(std::span<const FolderScan> scans, JsonWriter &json)
{
    const ScanFilter &filter = scans.front().filter;
    if (filter.isUsual())
        return;
    json.key("filter");
    json.beginObject();
    json.key("exclude");
    json.beginArray();
    for (const std::string &pattern : filter.excluded)
        json.text(pattern);
    json.endArray();
    json.value("leftOut", leftOutOf(scans));
    json.value("oneFileSystem", filter.mounts == ScanFilter::Mounts::none);
    json.value("apparent", filter.sizes == ScanFilter::Sizes::apparent);
    json.endObject();
}

ExitStatus FolderScan::report(Console &console, bool resultSaysSo) const
{
    if (!unreadableReason.empty())
        console.complain(fmt::format("cannot read {}: {}", root->path(), unreadableReason));
    if (isCancelled && !(resultSaysSo && console.outIsTerminal()))
        console.complain(stoppedText);
    return isCancelled || !unreadableReason.empty() ? ExitStatus::doneWithFailures : ExitStatus::done;
}

ExitStatus report(std::span<const FolderScan> scans, Console &console, bool resultSaysSo)
{
    auto worst = ExitStatus::done;
    for (const FolderScan &scan : scans)
        worst = std::max(worst, scan.report(console, resultSaysSo));
    return worst;
}

std::vector<std::shared_ptr<FileNode>> filesOf(std::span<const FolderScan> scans)
{
    std::vector<std::shared_ptr<FileNode>> files;
    for (std::size_t i = 0; i < scans.size(); ++i) {
        const std::span<const FolderScan> before = scans.first(i);
        for (const std::shared_ptr<FileNode> &file : scans[i].summary->allFiles) {
            const bool isKnown = std::ranges::any_of(
                before, [&](const FolderScan &scan) { return scan.summary->index.find(file->path()) != nullptr; });
            if (!isKnown)
                files.push_back(file);
        }
    }
    if (scans.size() > 1)
        std::ranges::stable_sort(files, std::ranges::greater(), &FileNode::size);
    return files;
}

} // namespace corvane
