#include "cli/apps_table.h"

#include <algorithm>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include <fmt/format.h>

#include "apps/listed_items.h"
#include "cli/terminal_text.h"
#include "core/words/display_text.h"
#include "core/words/figures.h"

namespace corvane {

namespace {

constexpr std::size_t sizeColumns = 10;
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
        contents += fmt::format(", {}", rawValue(app.source));
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
    std::size_t nameColumns = 0;
    for (const Row &row : rows)
        nameColumns = std::max(nameColumns, std::min(displayWidth(row.name), mostNameColumns));
    for (const Row &row : rows) {
        console.out.write(fmt::format("{}  {}  {}\n", rightAligned(formatByteCount(row.size), sizeColumns),
                                      leftAligned(elided(row.name, nameColumns), nameColumns), row.contents));
    }
}

} // namespace

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
        console.out.write(console.strong("No apps found"));
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
        console.out.write(fmt::format("\n{}, {}\n", console.strong("Left behind by deleted apps"),
                                      formatByteCount(orphanTotal(inventory.orphanGroups))));
        writeRows(orphans, console);
    }
    if (apps.empty() && orphans.empty())
        return;
    console.out.write('\n');
    console.out.write(
        console.faint("\"corvane-cli apps --json\" names what they keep; \"corvane-cli remove PATH\" removes it"));
    console.out.write('\n');
}

} // namespace corvane
