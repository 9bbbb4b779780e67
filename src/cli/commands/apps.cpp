#include "cli/commands/apps.h"

#include <algorithm>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include <fmt/format.h>

#include "apps/app_inventory.h"
#include "apps/listed_items.h"
#include "cli/commands/commands.h"
#include "cli/json_writer.h"
#include "cli/table.h"
#include "cli/terminal_text.h"
#include "core/path_guard.h"
#include "core/words/display_text.h"
#include "core/words/figures.h"
#include "core/words/shared_texts.h"

namespace corvane {

namespace {

void writeLeftovers(std::string_view name, const std::vector<Leftover> &leftovers, JsonWriter &json)
{
    json.key(name);
    json.beginArray();
    for (const Leftover &leftover : leftovers) {
        json.beginObject();
        json.bytes("path", leftover.path);
        json.value("size", leftover.size);
        json.bytes("location", leftover.location);
        json.bytes("match", caseName(leftover.match));
        json.value("modified", leftover.modified.value_or(distantPast));
        json.endObject();
    }
    json.endArray();
}

void writeApp(const InstalledApp &app, Time now, const Calendar &calendar, JsonWriter &json)
{
    json.beginObject();
    json.bytes("name", app.name);
    json.bytes("bundleID", app.bundleID);
    json.bytes("version", app.version);
    json.value("isAppStore", app.isAppStore);
    json.value("appSize", app.appSize);
    json.value("lastUsed", app.lastUsed.value_or(distantPast));
    json.value("unusedForMonths", app.unusedForMonths(now, calendar));
    json.bytes("path", app.path);
    if (app.source != InstalledApp::Source::none)
        json.bytes("source", caseName(app.source));
    if (!app.removeCommand.empty())
        json.bytes("removeCommand", app.removeCommand);
    writeLeftovers("leftovers", app.leftovers, json);
    json.endObject();
}

constexpr std::size_t mostNameColumns = 32;

struct Row {
    std::int64_t size = 0;
    std::string name;
    std::string contents;
};

Row rowOf(const InstalledApp &app, Time now, const Calendar &calendar)
{
    std::string contents = "app " + formatByteCount(app.appSize);
    if (!app.leftovers.empty())
        contents += " + data " + formatByteCount(app.dataSize());
    if (app.source != InstalledApp::Source::none)
        contents += fmt::format(", {}", caseName(app.source));
    if (const std::optional<int> months = app.unusedForMonths(now, calendar))
        contents += fmt::format(", not opened in {} months", *months);
    return {app.totalSize(), displayUtf8(app.name), std::move(contents)};
}

Row rowOf(const OrphanGroup &group)
{
    const auto count = static_cast<std::int64_t>(group.items.size());
    return {group.size(), displayUtf8(group.id), formatCount(count, "item", "items")};
}

void writeRows(const std::vector<Row> &rows, Console &console)
{
    const std::size_t before = sizeColumns() + 2;
    const std::size_t most = std::min(mostNameColumns, console.roomBeside(before) / 2);
    std::size_t nameColumns = 0;
    for (const Row &row : rows)
        nameColumns = std::max(nameColumns, std::min(displayWidth(row.name), most));
    for (const Row &row : rows) {
        console.out.write(fmt::format("{}  {}  {}\n", sizeCell(row.size),
                                      leftAligned(elided(row.name, nameColumns), nameColumns),
                                      elided(row.contents, console.roomBeside(before + nameColumns + 2))));
    }
}

} // namespace

void writeAppsJson(const AppInventory::Result &inventory, Time now, const Calendar &calendar, Output &out)
{
    JsonWriter json(out);
    json.beginObject();
    json.key("apps");
    json.beginArray();
    for (const InstalledApp &app : inventory.apps)
        writeApp(app, now, calendar, json);
    json.endArray();
    json.key("orphanGroups");
    json.beginArray();
    for (const OrphanGroup &group : inventory.orphanGroups) {
        json.beginObject();
        json.bytes("id", group.id);
        writeLeftovers("items", group.items, json);
        json.endObject();
    }
    json.endArray();
    json.endObject();
    json.finish();
}

void writeAppsTable(const AppInventory::Result &inventory, Time now, const Calendar &calendar, Console &console)
{
    std::vector<Row> apps;
    for (const InstalledApp &app : inventory.apps)
        apps.push_back(rowOf(app, now, calendar));
    std::ranges::stable_sort(apps, std::ranges::greater(), &Row::size);
    std::vector<Row> orphans;
    for (const OrphanGroup &group : inventory.orphanGroups)
        orphans.push_back(rowOf(group));

    if (apps.empty()) {
        console.out.write(console.strong(noAppsTitle));
    } else {
        const auto count = static_cast<std::int64_t>(apps.size());
        console.out.write(
            console.strong(fmt::format("{} {} {}", formatCount(count, "app", "apps"), plural(count, "uses", "use"),
                                       formatByteCount(appTotal(inventory.apps)))));
        console.out.write(count == 1 ? ", including its data\n" : ", including their data\n");
    }
    console.out.write('\n');
    writeRows(apps, console);
    if (!orphans.empty()) {
        console.out.write(fmt::format("\n{}, {}\n", console.strong(orphansTitle),
                                      formatByteCount(orphanTotal(inventory.orphanGroups))));
        writeRows(orphans, console);
    }
    if (apps.empty() && orphans.empty())
        return;
    console.out.write('\n');
    console.writeHint("\"corvane-cli apps --json\" names what they keep; \"corvane-cli remove PATH\" removes it");
}

namespace {

ExitStatus run(const Arguments &arguments, Console &console, const Host &host)
{
    const Time now = currentTime();
    const AppInventory::Result inventory = AppInventory::load(host, PathGuard::locations(), now);
    if (arguments.has("json"))
        writeAppsJson(inventory, now, systemCalendar(), console.out);
    else
        writeAppsTable(inventory, now, systemCalendar(), console);
    return ExitStatus::done;
}

} // namespace

Command appsCommand()
{
    return {.name = "apps",
            .summary = "List apps, the data they keep, and what deleted ones left behind.",
            .example = "corvane-cli apps",
            .home = Command::Home::needed,
            .run = run};
}

} // namespace corvane
