#include "cli/snapshots_command.h"

#include <string>

#include "cli/breakdown_json.h"
#include "cli/terminal_text.h"
#include "core/words/display_text.h"
#include "core/words/figures.h"
#include "disk/disk_accountant.h"

namespace corvane {

namespace {

constexpr std::size_t dateColumns = 16;

std::string dateText(const LocalSnapshot &snapshot)
{
    return snapshot.date ? dateTimeText(*snapshot.date) : "date unknown";
}

void writeLine(const LocalSnapshot &snapshot, Console &console)
{
    const std::string size = snapshot.size ? " (" + formatByteCount(*snapshot.size) + ")" : std::string();
    console.out.write(leftAligned(dateText(snapshot), dateColumns) + "  " + displayUtf8(snapshot.name) + size + "\n");
    if (!snapshot.deleteCommand.empty()) {
        console.out.write(console.faint(std::string(dateColumns + 2, ' ') + displayUtf8(snapshot.deleteCommand)) +
                          "\n");
    }
}

} // namespace

ExitStatus SnapshotsCommand::run(Console &console, const Host &host) const
{
    const std::vector<LocalSnapshot> snapshots = DiskAccountant::loadSnapshots(host);
    if (json) {
        writeSnapshotsJson(snapshots, console.out);
        return ExitStatus::done;
    }
    if (snapshots.empty())
        console.out.write("No local snapshots\n");
    for (const LocalSnapshot &snapshot : snapshots)
        writeLine(snapshot, console);
    return ExitStatus::done;
}

} // namespace corvane
