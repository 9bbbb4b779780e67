#include "cli/commands/snapshots.h"

#include <string>

#include "cli/commands/commands.h"
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

ExitStatus run(const Arguments &arguments, Console &console, const Host &host)
{
    const std::vector<LocalSnapshot> snapshots = DiskAccountant::loadSnapshots(host);
    if (arguments.has("json")) {
        JsonWriter json(console.out);
        writeSnapshots(snapshots, json);
        json.finish();
        return ExitStatus::done;
    }
    writeSnapshotsTable(snapshots, console);
    return ExitStatus::done;
}

} // namespace

void writeSnapshotsTable(const std::vector<LocalSnapshot> &snapshots, Console &console)
{
    if (snapshots.empty())
        console.out.write("No local snapshots\n");
    for (const LocalSnapshot &snapshot : snapshots)
        writeLine(snapshot, console);
}

void writeSnapshots(const std::vector<LocalSnapshot> &snapshots, JsonWriter &json)
{
    json.beginArray();
    for (const LocalSnapshot &snapshot : snapshots) {
        json.beginObject();
        json.text("name", snapshot.name);
        json.value("date", snapshot.date.value_or(distantPast));
        if (!snapshot.deleteCommand.empty()) {
            json.value("size", snapshot.size);
            json.text("command", snapshot.deleteCommand);
        }
        json.endObject();
    }
    json.endArray();
}

Command snapshotsCommand()
{
    return {.name = "snapshots",
            .summary = "List the snapshots that the system keeps of the disk.",
            .example = "corvane-cli snapshots",
            .run = run};
}

} // namespace corvane
