#include "cli/file_lists_command.h"

#include <algorithm>
#include <charconv>
#include <chrono>
#include <functional>
#include <limits>

#include <fmt/format.h>
#include <fmt/ranges.h>

#include "cli/file_list_output.h"
#include "cli/folder_scan.h"
#include "cli/path_argument.h"

namespace corvane {

namespace {

constexpr int mostMonths = 12 * 1'000;

/// Scans the folder, and writes what `list` makes of its files.
ExitStatus writeFilesOf(const std::string &path, bool json, Console &console, const Host &host,
                        const std::function<FoundFiles(const FileList &)> &list)
{
    const Judged<std::string> folder = existingFolder(path, host.files);
    if (!folder) {
        console.complain(folder.error());
        return ExitStatus::refused;
    }
    const Judged<FolderScan> scan = FolderScan::run(*folder, FolderScan::Extent::treeAndSummary, console, host.files);
    if (!scan) {
        console.complain(scan.error());
        return ExitStatus::doneWithFailures;
    }
    const FoundFiles found = list(scan->summary->allFiles);
    if (json)
        writeFileListJson(found, console.out);
    else
        writeFileListTable(found, host.files.homeFolder(), console);
    return scan->report(console, false);
}

template <typename Number>
std::optional<Number> numberIn(std::string_view text, Number least, Number most)
{
    Number number = 0;
    const char *const end = text.data() + text.size();
    const auto [rest, error] = std::from_chars(text.data(), end, number);
    if (error != std::errc() || rest != end || number < least || number > most)
        return std::nullopt;
    return number;
}

} // namespace

ExitStatus LargeCommand::run(Console &console, const Host &host) const
{
    return writeFilesOf(path, json, console, host, [&](const FileList &files) {
        FoundFiles found{.title = "Large Files", .subtitle = {}, .none = "No files match", .files = {}};
        found.files = largeFiles(files, filter, SearchableNames(files, userCasing()));
        found.subtitle = largeFilesSubtitle(found.files);
        return found;
    });
}

ExitStatus OldCommand::run(Console &console, const Host &host) const
{
    return writeFilesOf(path, json, console, host, [&](const FileList &files) {
        FoundFiles found{.title = "Old Files", .subtitle = {}, .none = "Nothing stale here", .files = {}};
        const auto now = std::chrono::floor<std::chrono::seconds>(std::chrono::system_clock::now());
        found.files = oldFiles(files, filter, systemCalendar().monthsBefore(now, filter.months),
                               SearchableNames(files, userCasing()));
        found.subtitle = oldFilesSubtitle(found.files, filter.months);
        return found;
    });
}

std::optional<std::int64_t> byteCount(std::string_view text)
{
    return numberIn<std::int64_t>(text, 0, std::numeric_limits<std::int64_t>::max());
}

std::optional<int> monthCount(std::string_view text)
{
    return numberIn<int>(text, 1, mostMonths);
}

std::optional<FileType> fileTypeNamed(std::string_view text)
{
    const auto found = std::ranges::find_if(FileType::allCases(),
                                            [&](FileType type) { return isOfFiles(type) && type.caseName() == text; });
    return found == FileType::allCases().end() ? std::nullopt : std::optional(*found);
}

std::string fileTypeNames()
{
    std::vector<std::string_view> names;
    for (const FileType type : FileType::allCases()) {
        if (isOfFiles(type))
            names.push_back(type.caseName());
    }
    return fmt::format("{}", fmt::join(names, ", "));
}

} // namespace corvane
