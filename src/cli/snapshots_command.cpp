#include "cli/snapshots_command.h"

#include <string>

#include "cli/breakdown_json.h"
#include "cli/terminal_text.h"
#include "core/words/display_text.h"
#include "disk/disk_accountant.h"

namespace corvane {

namespace {

constexpr std::size_t dateColumns = 16;

std::string dateText(const LocalSnapshot &snapshot)
{
    return snapshot.date ? dateTimeText(*snapshot.date) : "date unknown";
}

} // namespace

ExitStatus SnapshotsCommand::run(Console &console) const
{
    const std::vector<LocalSnapshot> snapshots = DiskAccountant::loadSnapshots();
    if (json) {
        writeSnapshotsJson(snapshots, console.out);
        return ExitStatus::done;
    }
    if (snapshots.empty())
        console.out.write("No local snapshots\n");
    for (const LocalSnapshot &snapshot : snapshots)
        console.out.write(leftAligned(dateText(snapshot), dateColumns) + "  " + displayUtf8(snapshot.name) + "\n");
    return ExitStatus::done;
}

} // namespace corvane
