#include "cli/duplicates_command.h"

#include <fmt/format.h>

#include "cli/duplicates_json.h"
#include "cli/duplicates_table.h"
#include "cli/folder_scan.h"
#include "cli/path_argument.h"
#include "cli/stop_signal.h"
#include "cli/terminal_text.h"
#include "duplicates/duplicate_finder.h"

namespace corvane {

namespace {

DuplicatesFound search(const FolderScan &scan, Console &console, FileSystem &files)
{
    const StopSignal signal;
    const bool draws = console.canShowProgress();
    const auto write = [&](std::string_view text) {
        if (!draws)
            return;
        console.errors.write(clearLine);
        console.errors.write(text);
        console.errors.flush();
    };
    DuplicatesFound found;
    found.groups = DuplicateFinder::find(
        scan.summary->allFiles,
        [&](double fraction) { write(fmt::format("Fingerprinting files… {:.0f} percent", fraction * 100)); }, files,
        StopSignal::flag());
    found.isStopped = StopSignal::flag();
    write({});
    return found;
}

} // namespace

ExitStatus DuplicatesCommand::run(Console &console, const Host &host) const
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
    DuplicatesFound found{.groups = {}, .isStopped = true};
    if (!scan->isCancelled)
        found = search(*scan, console, host.files);
    if (json)
        writeDuplicatesJson(found, console.out);
    else
        writeDuplicatesTable(found, host.files.homeFolder(), console);
    if (found.isStopped && !scan->isCancelled && !(console.outIsTerminal() && !json))
        console.complain(searchStoppedText);
    const ExitStatus status = scan->report(console, false);
    return found.isStopped ? ExitStatus::doneWithFailures : status;
}

} // namespace corvane
