#include "cli/scan_command.h"

#include "cli/folder_scan.h"
#include "cli/path_argument.h"
#include "cli/scan_json.h"
#include "cli/scan_table.h"

namespace corvane {

ExitStatus ScanCommand::run(Console &console, const Host &host) const
{
    const Judged<std::string> folder = existingFolder(path.value_or(host.files.homeFolder()), host.files);
    if (!folder) {
        console.complain(folder.error());
        return ExitStatus::refused;
    }
    // The table shows nothing of the summary, which would cost memory and a look into every project.
    const auto extent = json ? FolderScan::Extent::treeAndSummary : FolderScan::Extent::tree;
    const Judged<FolderScan> scan = FolderScan::run(*folder, extent, console, host.files);
    if (!scan) {
        console.complain(scan.error());
        return ExitStatus::doneWithFailures;
    }
    if (json)
        writeScanJson(*scan, console.out);
    else
        writeScanTable(*scan, host.files.homeFolder(), console);
    return scan->report(console, !json);
}

} // namespace corvane
