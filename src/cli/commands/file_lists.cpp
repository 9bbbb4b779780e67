#include "cli/commands/commands.h"

#include <algorithm>
#include <chrono>
#include <iterator>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include <fmt/format.h>

#include "cli/argument_values.h"
#include "cli/folder_heading.h"
#include "cli/folder_scan.h"
#include "cli/item_order.h"
#include "cli/json_writer.h"
#include "cli/scan_options.h"
#include "cli/scan_report.h"
#include "cli/scanned_files.h"
#include "cli/table.h"
#include "cli/terminal_text.h"
#include "core/words/display_text.h"
#include "core/words/figures.h"
#include "core/words/shared_texts.h"
#include "lists/file_lists.h"

namespace corvane {

namespace {

/// A list of files and its heading.
struct FoundFiles {
    std::string_view title;
    std::string subtitle;
    std::string_view none; ///< message for an empty list
    FileList files;
    std::size_t more = 0; ///< files beyond the requested number
};

/// Without `files`: every file counts as one, so that order is meaningless.
std::optional<ItemOrder> fileOrderNamed(std::string_view text)
{
    const std::optional<ItemOrder> order = orderNamed(text);
    return order == ItemOrder::files ? std::nullopt : order;
}

constexpr std::size_t dateColumns = 10;

void writeFileListJson(const FoundFiles &found, std::span<const FolderScan> scans, Output &out)
{
    JsonWriter json(out);
    json.beginObject();
    json.text("title", found.title);
    json.text("subtitle", found.subtitle);
    json.key("files");
    json.beginArray();
    for (const std::shared_ptr<FileNode> &file : found.files) {
        if (json.isClosed())
            break;
        json.beginObject();
        json.bytes("path", file->path());
        json.value("size", file->size);
        json.text("kindLabel", file->kindLabel());
        json.value("modified", file->modified);
        json.endObject();
    }
    json.endArray();
    writeFilter(scans, json);
    json.endObject();
    json.finish();
}

void writeFileListTable(const FoundFiles &found, std::span<const FolderScan> scans, std::string_view home,
                        Console &console)
{
    if (found.files.empty()) {
        console.out.write(fmt::format("{}\n", found.none));
        writeNotes(scans, console);
        return;
    }
    console.out.write(console.strong(found.title));
    console.out.write(fmt::format(" · {}\n\n", found.subtitle));
    const std::size_t taken = sizeColumns() + 2 + dateColumns + 2;
    for (const std::shared_ptr<FileNode> &file : found.files) {
        if (console.out.isClosed())
            break;
        const std::string path = elidedAtFront(formatPath(file->path(), home), console.roomBeside(taken));
        console.out.write(fmt::format("{}  {}  {}\n", sizeCell(file->size),
                                      leftAligned(dateText(file->modified), dateColumns), path));
    }
    if (found.more > 0)
        console.out.write(formatCount(static_cast<std::int64_t>(found.more), "more file", "more files") + "\n");
    writeNotes(scans, console);
}

/// Scans the folder and writes the files selected by `list`.
template <typename List>
ExitStatus writeFilesOf(const Arguments &arguments, Console &console, const Host &host, const List &list)
{
    const std::optional<std::size_t> most = arguments.value("top", lineCount, validLines("files"));
    const ItemOrder order = arguments.value("sort", fileOrderNamed, "size, name or modified").value_or(ItemOrder::size);
    const auto scans = FolderScan::ofArguments(arguments, FolderScan::Extent::treeAndSummary, console, host.files);
    if (!scans)
        return scans.error();
    FoundFiles found = list(filesOf(*scans));
    std::ranges::stable_sort(found.files,
                             [order](const auto &a, const auto &b) { return standsBefore(*a, *b, order); });
    if (most && *most < found.files.size()) {
        found.more = found.files.size() - *most;
        found.files.resize(*most);
    }
    if (arguments.has("json"))
        writeFileListJson(found, *scans, console.out);
    else
        writeFileListTable(found, *scans, host.files.homeFolder(), console);
    return report(*scans, console, false);
}

/// Sets the filter's options that both commands share.
template <typename Filter>
void setCommon(const Arguments &arguments, Filter &filter)
{
    filter.minSize = arguments.value("min", byteCount, validBytes()).value_or(filter.minSize);
    filter.query = arguments.text("name").value_or("");
}

ExitStatus runLarge(const Arguments &arguments, Console &console, const Host &host)
{
    LargeFilesFilter filter;
    setCommon(arguments, filter);
    filter.type = arguments.value("type", fileTypeNamed, "one of " + fileTypeNames());
    return writeFilesOf(arguments, console, host, [&](const FileList &files) {
        FoundFiles found{.title = "Large Files", .subtitle = {}, .none = noLargeFilesTitle, .files = {}};
        found.files = largeFiles(files, filter, SearchableNames(files, userCasing()));
        found.subtitle = largeFilesSubtitle(found.files);
        return found;
    });
}

ExitStatus runOld(const Arguments &arguments, Console &console, const Host &host)
{
    OldFilesFilter filter;
    filter.months = arguments.value("months", monthCount, validMonths()).value_or(filter.months);
    setCommon(arguments, filter);
    return writeFilesOf(arguments, console, host, [&](const FileList &files) {
        FoundFiles found{.title = "Old Files", .subtitle = {}, .none = noOldFilesTitle, .files = {}};
        const auto now = std::chrono::floor<std::chrono::seconds>(std::chrono::system_clock::now());
        found.files = oldFiles(files, filter, systemCalendar().monthsBefore(now, filter.months),
                               SearchableNames(files, userCasing()));
        found.subtitle = oldFilesSubtitle(found.files, filter.months);
        return found;
    });
}

Option minOption(std::string_view usual)
{
    return {.name = "min", .value = "BYTES", .help = fmt::format("Only files of at least BYTES, by default {}", usual)};
}

/// The options that both commands accept.
std::vector<Option> withCommonOptions(std::vector<Option> options)
{
    options.push_back({.name = "name", .value = "TEXT", .help = "Only files with TEXT in the name, ignoring case"});
    options.push_back({.name = "sort", .value = "KEY", .help = "Order files by size (the default), name or modified"});
    options.push_back({.name = "top", .value = "N", .help = "List at most N files"});
    std::ranges::copy(excludeOptions(), std::back_inserter(options));
    options.push_back(apparentOption());
    return options;
}

} // namespace

Command largeCommand()
{
    return {.name = "large",
            .summary = "List the large files in a folder.",
            .paths = {.help = "The folders", .least = 1, .most = PathArguments::anyNumber},
            .options = withCommonOptions(
                {minOption("100000000"),
                 {.name = "type", .value = "TYPE", .help = "Only files of TYPE: " + fileTypeNames()}}),
            .example = "corvane-cli large ~ --min 1000000000 --type video",
            .run = runLarge};
}

Command oldCommand()
{
    return {.name = "old",
            .summary = "List the files in a folder that were last modified long ago.",
            .paths = {.help = "The folders", .least = 1, .most = PathArguments::anyNumber},
            .options = withCommonOptions(
                {{.name = "months", .value = "N", .help = "Only files not modified for N months, by default 12"},
                 minOption("10000000")}),
            .example = "corvane-cli old ~ --months 24",
            .run = runOld};
}

} // namespace corvane
