#include "cli/snapshots_command.h"

#include <ctime>
#include <string>

#include <fmt/format.h>

#include "cli/breakdown_json.h"
#include "cli/terminal_text.h"
#include "core/words/display_text.h"
#include "disk/disk_accountant.h"

namespace corvane {

namespace {

constexpr std::size_t dateColumns = 16;

std::string dateText(const LocalSnapshot &snapshot)
{
    if (!snapshot.date)
        return "date unknown";
    const auto seconds = static_cast<std::time_t>(snapshot.date->time_since_epoch().count());
    std::tm local{};
    ::localtime_r(&seconds, &local);
    return fmt::format("{:04}-{:02}-{:02} {:02}:{:02}", local.tm_year + 1900, local.tm_mon + 1, local.tm_mday,
                       local.tm_hour, local.tm_min);
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
