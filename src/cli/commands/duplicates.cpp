#include "cli/commands/commands.h"

#include <algorithm>
#include <atomic>
#include <iterator>
#include <optional>
#include <span>
#include <string>

#include <fmt/format.h>

#include "cli/argument_values.h"
#include "cli/folder_heading.h"
#include "cli/folder_scan.h"
#include "cli/json_writer.h"
#include "cli/scan_options.h"
#include "cli/scan_report.h"
#include "cli/scanned_files.h"
#include "cli/terminal_text.h"
#include "cli/watch.h"
#include "core/stop_flag.h"
#include "core/words/display_text.h"
#include "core/words/figures.h"
#include "core/words/shared_texts.h"
#include "duplicates/duplicate_finder.h"
#include "lists/file_lists.h"

namespace corvane {

namespace {

/// The result of a search for duplicates.
struct DuplicatesFound {
    std::vector<DuplicateGroup> groups;
    bool isStopped = false; ///< stopped early: there may be more
    std::size_t most = std::string::npos;

    /// The groups up to the requested number.
    [[nodiscard]] std::span<const DuplicateGroup> shown() const
    {
        return std::span(groups).first(std::min(most, groups.size()));
    }
};

/// Shown for a search that was stopped.
constexpr std::string_view searchStoppedText = "Search stopped — showing partial results";

void writeGroup(const DuplicateGroup &group, JsonWriter &json)
{
    json.beginObject();
    json.value("size", group.size);
    json.value("waste", group.reclaimable());
    json.key("files");
    json.beginArray();
    const std::vector<std::optional<std::size_t>> shared = group.sharedStorage();
    for (std::size_t i = 0; i < group.files.size(); ++i) {
        json.beginObject();
        json.bytes("path", group.files[i]->path());
        json.value("modified", group.files[i]->modified);
        if (const auto other = shared[i])
            json.bytes("sharesStorageWith", group.files[*other]->path());
        json.endObject();
    }
    json.endArray();
    json.endObject();
}

constexpr std::size_t indent = 2;

/// A file's name for display beside another one: its path if both have the same name.
std::string nameBeside(const FileNode &file, const FileNode &other, std::string_view home)
{
    return file.name == other.name ? formatPath(file.path(), home) : displayUtf8(file.name);
}

void writeGroup(const DuplicateGroup &group, std::string_view home, Console &console)
{
    const std::string heading = fmt::format(
        "{} copies × {}", formatCount(static_cast<std::int64_t>(group.files.size())), formatByteCount(group.size));
    console.out.write(fmt::format("\n{}, {} wasted\n", console.strong(heading), formatByteCount(group.reclaimable())));
    const std::vector<std::optional<std::size_t>> shared = group.sharedStorage();
    for (std::size_t i = 0; i < group.files.size(); ++i) {
        const std::string remark =
            shared[i] ? "  shares its storage with " + nameBeside(*group.files[*shared[i]], *group.files[i], home) : "";
        const std::string path =
            elidedAtFront(formatPath(group.files[i]->path(), home), console.roomBeside(indent + displayWidth(remark)));
        console.out.write(fmt::format("{:{}}{}{}\n", "", indent, path, console.faint(remark)));
    }
}

DuplicatesFound search(const FileList &files, const Console &console, FileSystem &system)
{
    StopFlag stop = false;
    std::atomic<double> done = 0;
    const auto line = [&](std::size_t columns) {
        return elided(fmt::format("{} {:.0f} percent", fingerprintingText, done * 100), columns);
    };
    const Watch watch([&] { stop = true; }, line, console.progressDisplay());
    DuplicatesFound found;
    found.groups = DuplicateFinder::find(
        files, [&](double fraction) { done = fraction; }, system, stop);
    found.isStopped = stop;
    return found;
}

void writeDuplicatesJson(const DuplicatesFound &found, std::span<const FolderScan> scans, Output &out)
{
    JsonWriter json(out);
    json.beginObject();
    json.key("groups");
    json.beginArray();
    for (const DuplicateGroup &group : found.shown())
        writeGroup(group, json);
    json.endArray();
    json.value("waste", totalReclaimable(found.groups));
    json.value("cancelled", found.isStopped);
    writeFilter(scans, json);
    json.endObject();
    json.finish();
}

void writeDuplicatesTable(const DuplicatesFound &found, std::span<const FolderScan> scans, std::string_view home,
                          Console &console)
{
    if (found.isStopped)
        console.out.write(fmt::format("{}\n", console.strong(searchStoppedText)));
    if (found.groups.empty()) {
        if (!found.isStopped)
            console.out.write(fmt::format("No duplicates found. Every file over 1 MB in {} is unique.\n",
                                          scans.size() > 1 ? "these folders" : "this folder"));
        writeNotes(scans, console);
        return;
    }
    const auto count = static_cast<std::int64_t>(found.groups.size());
    console.out.write(console.strong(formatCount(count, "group", "groups")));
    console.out.write(fmt::format(" · {} wasted\n", formatByteCount(totalReclaimable(found.groups))));
    for (const DuplicateGroup &group : found.shown())
        writeGroup(group, home, console);
    if (const auto more = static_cast<std::int64_t>(found.groups.size() - found.shown().size()); more > 0)
        console.out.write(fmt::format("\n{}\n", formatCount(more, "more group", "more groups")));
    writeNotes(scans, console);
}

ExitStatus run(const Arguments &arguments, Console &console, const Host &host)
{
    const bool json = arguments.has("json");
    const std::optional<std::size_t> most = arguments.value("top", lineCount, validLines("groups"));
    const auto scans = FolderScan::ofArguments(arguments, FolderScan::Extent::treeAndSummary, console, host.files);
    if (!scans)
        return scans.error();
    const bool scanIsStopped = scans->back().isCancelled;
    DuplicatesFound found{.groups = {}, .isStopped = true};
    if (!scanIsStopped)
        found = search(filesOf(*scans), console, host.files);
    found.most = most.value_or(found.most);
    if (json)
        writeDuplicatesJson(found, *scans, console.out);
    else
        writeDuplicatesTable(found, *scans, host.files.homeFolder(), console);
    if (found.isStopped && !scanIsStopped && !(console.outIsTerminal() && !json))
        console.complain(searchStoppedText);
    const ExitStatus status = report(*scans, console, false);
    return found.isStopped ? ExitStatus::doneWithFailures : status;
}

std::vector<Option> options()
{
    std::vector<Option> options{{.name = "top", .value = "N", .help = "Show at most N groups"}};
    std::ranges::copy(excludeOptions(), std::back_inserter(options));
    return options;
}

} // namespace

Command duplicatesCommand()
{
    return {.name = "duplicates",
            .summary = "Find files with the same contents.",
            .paths = {.help = "The folders", .least = 1, .most = PathArguments::anyNumber},
            .options = options(),
            .example = "corvane-cli duplicates ~/Pictures",
            .run = run};
}

} // namespace corvane
