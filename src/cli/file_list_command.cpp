#include "cli/file_list_command.h"

#include <algorithm>
#include <iterator>
#include <memory>
#include <optional>
#include <span>

#include <fmt/format.h>

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

namespace corvane {

namespace {

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

} // namespace

ExitStatus writeFilesOf(const Arguments &arguments, Console &console, const Host &host,
                        const std::function<FoundFiles(const FileList &)> &select)
{
    const std::optional<std::size_t> most = arguments.value("top", lineCount, validLines("files"));
    const ItemOrder order = arguments.value("sort", fileOrderNamed, "size, name or modified").value_or(ItemOrder::size);
    const auto scans = FolderScan::ofArguments(arguments, FolderScan::Extent::treeAndSummary, console, host.files);
    if (!scans)
        return scans.error();
    FoundFiles found = select(filesOf(*scans));
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

Option minOption(std::string_view usual)
{
    return {.name = "min", .value = "BYTES", .help = fmt::format("Only files of at least BYTES, by default {}", usual)};
}

std::vector<Option> withFileListOptions(std::vector<Option> options)
{
    options.push_back({.name = "name", .value = "TEXT", .help = "Only files with TEXT in the name, ignoring case"});
    options.push_back({.name = "sort", .value = "KEY", .help = "Order files by size (the default), name or modified"});
    options.push_back({.name = "top", .value = "N", .help = "List at most N files"});
    std::ranges::copy(excludeOptions(), std::back_inserter(options));
    options.push_back(apparentOption());
    return options;
}

} // namespace corvane
