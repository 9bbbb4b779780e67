#include "cli/commands/breakdown.h"

#include "cli/commands/commands.h"
#include "cli/commands/snapshots.h"

#include <algorithm>
#include <string_view>

#include <fmt/format.h>

#include "cli/folder_scan.h"
#include "cli/json_writer.h"
#include "cli/scan_report.h"
#include "cli/table.h"
#include "core/path_argument.h"
#include "core/path_guard.h"
#include "core/systems/disk_table.h"
#include "core/words/display_text.h"
#include "core/words/figures.h"
#include "core/words/shared_texts.h"
#include "disk/disk_accountant.h"
#include "platform/time.h"

namespace corvane {

namespace {

std::string_view kindName(BreakdownSegment::Kind kind)
{
    switch (kind) {
    case BreakdownSegment::Kind::system:
        return "system";
    case BreakdownSegment::Kind::support:
        return "support";
    case BreakdownSegment::Kind::vm:
        return "vm";
    case BreakdownSegment::Kind::scanned:
        return "scanned";
    case BreakdownSegment::Kind::measured:
        return "measured";
    case BreakdownSegment::Kind::purgeable:
        return "purgeable";
    case BreakdownSegment::Kind::hidden:
        return "hidden";
    case BreakdownSegment::Kind::otherVolume:
        return "otherVolume";
    }
    return {};
}

std::string_view actionName(BreakdownAction::Kind kind)
{
    switch (kind) {
    case BreakdownAction::Kind::reveal:
        return "reveal";
    case BreakdownAction::Kind::openMap:
        return "openMap";
    case BreakdownAction::Kind::scanHome:
        return "scanHome";
    case BreakdownAction::Kind::fullDiskAccess:
        return "fullDiskAccess";
    }
    return {};
}

void writeSegment(const BreakdownSegment &segment, JsonWriter &json)
{
    json.beginObject();
    json.bytes("id", segment.id);
    json.text("kind", kindName(segment.kind));
    json.bytes("title", segment.title);
    json.text("detail", segment.detail);
    json.text("symbol", segment.symbol);
    json.value("color", segment.color);
    json.value("size", segment.size);
    json.key("children");
    json.beginArray();
    for (const NamedSize &child : segment.children) {
        json.beginObject();
        json.bytes("name", child.name);
        json.value("size", child.size);
        json.endObject();
    }
    json.endArray();
    if (segment.action) {
        json.key("action");
        json.beginObject();
        json.text("kind", actionName(segment.action->kind));
        if (segment.action->kind == BreakdownAction::Kind::reveal)
            json.bytes("path", segment.action->path);
        json.endObject();
    } else {
        json.null("action");
    }
    if (segment.actionTitle)
        json.text("actionTitle", *segment.actionTitle);
    else
        json.null("actionTitle");
    json.endObject();
}

void writeSegment(const BreakdownSegment &segment, ShareTable &table)
{
    const bool isUnexplained = segment.kind == BreakdownSegment::Kind::hidden;
    table.write({.size = segment.size,
                 .color = segment.color,
                 .name = segment.title,
                 .mark = isUnexplained ? " (unexplained)" : ""});
    for (const NamedSize &child : segment.children)
        table.writePart(child.size, child.name);
}

/// What may occupy the unexplained space, or nothing.
std::string unexplainedReason(const DiskBreakdown &breakdown)
{
    for (const BreakdownSegment &segment : breakdown.segments) {
        if (segment.kind == BreakdownSegment::Kind::hidden && !segment.detail.empty())
            return fmt::format("{}: {}", segment.title, segment.detail);
    }
    return {};
}

// Resolves a link to its target, so that the breakdown does not measure the target a second time. A home folder that is
// a link keeps its name, by which it is recognized.
std::string scannedPath(std::string path, FileSystem &files)
{
    const Expected<ItemFacts> facts = files.facts(path);
    if (!facts || facts->type != EntryType::symbolicLink || path == files.homeFolder())
        return path;
    return files.realPath(path).value_or(std::move(path));
}

} // namespace

void writeBreakdownJson(const DiskBreakdown &breakdown, Output &out)
{
    JsonWriter json(out);
    json.beginObject();
    json.bytes("volumeName", breakdown.volumeName);
    json.value("total", breakdown.total);
    json.value("free", breakdown.free);
    json.value("purgeable", breakdown.purgeable);
    json.key("segments");
    json.beginArray();
    for (const BreakdownSegment &segment : breakdown.segments)
        writeSegment(segment, json);
    json.endArray();
    json.key("snapshots");
    writeSnapshots(breakdown.snapshots, json);
    json.value("hasScan", breakdown.hasScan);
    json.value("fromAPFS", breakdown.fromAPFS);
    json.value("overcount", breakdown.overcount);
    json.value("hidden", breakdown.hidden());
    json.value("cancelled", breakdown.scanIsPartial);
    json.endObject();
    json.finish();
}

void writeBreakdownTable(const DiskBreakdown &breakdown, Console &console)
{
    const DiskTable &table = diskTableOf(breakdown.system);
    console.out.write(console.strong(fmt::format("{}% explained", breakdown.explainedPercentage())) + "\n");
    console.out.write(fmt::format("{} used of {}, {} free on {}\n", formatByteCount(breakdown.used()),
                                  formatByteCount(breakdown.total), formatByteCount(breakdown.free),
                                  displayUtf8(breakdown.volumeName)));
    if (breakdown.scanIsPartial)
        console.out.write(console.strong(stoppedScanText) + "\n");
    console.out.write('\n');
    ShareTable rows(console, breakdown.used());
    for (const BreakdownSegment &segment : breakdown.segments)
        writeSegment(segment, rows);
    if (!breakdown.segments.empty())
        console.out.write('\n');
    if (!breakdown.snapshots.empty()) {
        console.out.write(formatCount(static_cast<std::int64_t>(breakdown.snapshots.size()), table.snapshotNoun,
                                      table.snapshotsNoun) +
                          "; \"corvane-cli snapshots\" lists them\n");
    }
    if (!breakdown.hasScan && table.leavesHomeToTheScan)
        console.out.write("\"corvane-cli breakdown --scan ~\" explains your home folder too\n");
    else if (const std::string reason = unexplainedReason(breakdown); !reason.empty())
        console.writeHint(reason);
    for (const std::string &note : breakdown.footnotes())
        console.writeHint(note);
}

namespace {

ExitStatus run(const Arguments &arguments, Console &console, const Host &host)
{
    const bool json = arguments.has("json");
    ScanContext context;
    std::optional<FolderScan> scan;
    if (const std::optional<std::string> scanPath = arguments.text("scan")) {
        const Judged<std::string> folder = existingFolder(*scanPath, host.files);
        if (!folder) {
            console.complain(folder.error());
            return ExitStatus::refused;
        }
        Judged<FolderScan> scanned =
            FolderScan::run(scannedPath(*folder, host.files), FolderScan::Extent::treeAndSummary, console, host.files);
        if (!scanned) {
            console.complain(scanned.error());
            return ExitStatus::doneWithFailures;
        }
        context = ScanContext::of(*scanned->root, scanned->summary->unreadableCount);
        context.deniedCount = scanned->denied;
        context.isPartial = scanned->isCancelled;
        scan = *std::move(scanned);
    }
    context.hasFullDiskAccess = PathGuard::probeFullDiskAccess(host.files);

    const DiskBreakdown breakdown = DiskAccountant::compute(context, host);
    if (json)
        writeBreakdownJson(breakdown, console.out);
    else
        writeBreakdownTable(breakdown, console);
    return scan ? report(*scan, console, !json) : ExitStatus::done;
}

} // namespace

Command breakdownCommand()
{
    return {
        .name = "breakdown",
        .summary = "Explain where the space on the whole disk went.",
        .options = {{.name = "scan", .value = "PATH", .help = "Scan this folder first, so that it is explained too"}},
        .example = "corvane-cli breakdown --scan ~",
        .home = Command::Home::needed,
        .run = run};
}

} // namespace corvane
