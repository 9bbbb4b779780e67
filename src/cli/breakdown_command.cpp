#include "cli/breakdown_command.h"

#include "cli/breakdown_json.h"
#include "cli/breakdown_table.h"
#include "cli/folder_scan.h"
#include "cli/path_argument.h"
#include "core/path_guard.h"
#include "disk/disk_accountant.h"

namespace corvane {

namespace {

// Of a link the folder behind it is taken, which the breakdown then does not measure a second time. A home that is
// a link keeps its name, by which it is known.
std::string scannedPath(std::string path, FileSystem &files)
{
    const Expected<ItemFacts> facts = files.facts(path);
    if (!facts || facts->type != EntryType::symbolicLink || path == files.homeFolder())
        return path;
    return files.realPath(path).value_or(std::move(path));
}

} // namespace

ExitStatus BreakdownCommand::run(Console &console, const Host &host) const
{
    ScanContext context;
    std::optional<FolderScan> scan;
    if (scanPath) {
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
        scan = *std::move(scanned);
        context = ScanContext::of(*scan->root, scan->summary->unreadableCount);
        context.isPartial = scan->isCancelled;
    }
    context.hasFullDiskAccess = PathGuard::probeFullDiskAccess(host.files);

    const DiskBreakdown breakdown = DiskAccountant::compute(context, host);
    if (json)
        writeBreakdownJson(breakdown, console.out);
    else
        writeBreakdownTable(breakdown, console);
    return scan ? scan->report(console, !json) : ExitStatus::done;
}

} // namespace corvane
