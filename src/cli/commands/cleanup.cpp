#include "cli/commands/cleanup.h"

#include <algorithm>
#include <future>
#include <string>
#include <string_view>
#include <vector>

#include <fmt/format.h>

#include "cleanup/cleanup_catalog.h"
#include "cleanup/cleanup_items.h"
#include "cli/commands/commands.h"
#include "cli/json_writer.h"
#include "cli/table.h"
#include "cli/terminal_text.h"
#include "core/checked_add.h"
#include "core/words/display_text.h"
#include "core/words/figures.h"
#include "core/words/shared_texts.h"
#include "platform/path.h"

namespace corvane {

namespace {

void writeItem(const CleanupItem &item, JsonWriter &json)
{
    json.beginObject();
    json.text("id", item.def->id);
    json.text("title", item.def->title);
    json.text("detail", item.def->detail);
    json.text("risk", rawValue(item.def->risk));
    json.text("group", rawValue(item.def->group));
    json.text("relativePath", item.def->relativePath);
    if (item.path.empty())
        json.null("path");
    else
        json.bytes("path", item.path);
    json.value("accessible", item.accessible);
    json.value("total", item.total());
    json.key("entries");
    json.beginArray();
    for (const CleanupEntry &entry : item.entries) {
        json.beginObject();
        json.bytes("path", entry.path);
        json.value("size", entry.size);
        json.endObject();
    }
    json.endArray();
    json.endObject();
}

constexpr std::size_t riskColumns = 6;
constexpr std::size_t titleColumns = 28; // the longest title
constexpr std::size_t leastContentsColumns = 20;

std::size_t columnsBeforeContents()
{
    return sizeColumns() + 2 + riskColumns + 2 + titleColumns + 2;
}

std::string_view heading(CleanupGroup group)
{
    switch (group) {
    case CleanupGroup::system:
        return "System";
    case CleanupGroup::developer:
        return "Developer";
    case CleanupGroup::personal:
        return "Personal";
    }
    return {};
}

bool isShown(const CleanupItem &item, const CleanupTable &table)
{
    return table.foldsEmptyRows ? showingOf(item, table) == Showing::shown : !item.accessible || !item.entries.empty();
}

std::string contents(const CleanupItem &item, std::string_view home, const Console &console)
{
    if (!item.accessible)
        return item.owner.empty() ? "cannot be read" : displayUtf8(item.owner);
    const std::string count = formatCount(static_cast<std::int64_t>(item.entries.size()), "item", "items") + " in ";
    // If the entries are folders of several programs, the first one's location does not apply to all.
    const bool isInPlace = !item.entries.empty() && item.entries.front().name.empty();
    const std::string folder = formatPath(isInPlace ? containingFolder(item.entries.front().path) : item.path, home);
    return count + elidedAtFront(folder, console.roomBeside(columnsBeforeContents() + displayWidth(count)));
}

void writeRow(const CleanupItem &item, std::string_view home, Console &console)
{
    const std::string size = item.accessible ? formatByteCount(item.total()) : "?";
    const std::string start =
        fmt::format("{}  {}  ", rightAligned(size, sizeColumns()), leftAligned(rawValue(item.def->risk), riskColumns));
    if (console.outColumns() < columnsBeforeContents() + leastContentsColumns) {
        console.out.write(start + elided(item.def->title, console.roomBeside(start.size())) + "\n");
        return;
    }
    console.out.write(
        fmt::format("{}{}  {}\n", start, leftAligned(item.def->title, titleColumns), contents(item, home, console)));
}

void writeCommands(const std::vector<AdminCommand> &commands, Console &console)
{
    if (commands.empty())
        return;
    console.out.write(fmt::format("\n{}\n", console.strong(adminCommandsTitle)));
    constexpr std::size_t columns = riskColumns + 2 + titleColumns;
    for (const AdminCommand &command : commands) {
        const std::string size = command.bytes ? formatByteCount(*command.bytes) : "?";
        console.out.write(fmt::format("{}  {}  {}\n", rightAligned(size, sizeColumns()),
                                      leftAligned(command.title, columns), command.command));
    }
    console.writeHint(adminCommandsNote);
}

} // namespace

void writeCleanupJson(const std::vector<CleanupItem> &items, Output &out)
{
    JsonWriter json(out);
    json.beginArray();
    for (const CleanupItem &item : items)
        writeItem(item, json);
    json.endArray();
    json.finish();
}

void writeCleanupTable(const CleanupReport &report, Console &console)
{
    std::int64_t total = 0;
    for (const CleanupItem &item : report.items)
        total = checkedAdd(total, item.total());
    const std::string all = formatByteCount(total) + " could be cleaned up";
    const std::string safely = formatByteCount(safeTotal(report.items)) + " of it safely\n";
    const bool fits = displayWidth(all + ", " + safely) <= console.outColumns();
    console.out.write(console.strong(all) + (fits ? ", " : "\n") + safely);
    const std::vector<const CleanupItem *> sorted = largestFirst(report.items);
    for (const CleanupGroup group : allCleanupGroups) {
        const auto belongs = [&](const CleanupItem *item) {
            return item->def->group == group && isShown(*item, report.table);
        };
        if (std::ranges::none_of(sorted, belongs))
            continue;
        console.out.write(fmt::format("\n{}\n", console.strong(heading(group))));
        for (const CleanupItem *const item : sorted) {
            if (belongs(item))
                writeRow(*item, report.home, console);
        }
    }
    const auto countOf = [&](Showing showing) {
        return static_cast<std::size_t>(std::ranges::count_if(
            report.items, [&](const CleanupItem &item) { return showingOf(item, report.table) == showing; }));
    };
    if (const std::size_t folded = countOf(Showing::folded); folded > 0)
        console.out.write(fmt::format("\n{}\n", foldedText(folded, countOf(Showing::shown))));
    writeCommands(report.commands, console);
    console.out.write('\n');
    console.writeHint("\"corvane-cli cleanup --json\" names what lies in each; "
                      "\"corvane-cli remove PATH\" removes it");
}

namespace {

ExitStatus run(const Arguments &arguments, Console &console, const Host &host)
{
    if (arguments.has("json")) {
        writeCleanupJson(CleanupCatalog::measureAll(host.files), console.out);
        return ExitStatus::done;
    }
    // The tools often take longer than measuring a home folder.
    auto commands = std::async(std::launch::async, [&] { return findAdminCommands(host.files); });
    const std::vector<CleanupItem> items = CleanupCatalog::measureAll(host.files);
    const std::string home = host.files.homeFolder();
    writeCleanupTable({items, commands.get(), cleanupTableOf(host.files.systemKind()), home}, console);
    return ExitStatus::done;
}

} // namespace

Command cleanupCommand()
{
    return {.name = "cleanup",
            .summary = "Measure caches and other folders that could be cleaned up.",
            .example = "corvane-cli cleanup",
            .home = Command::Home::needed,
            .run = run};
}

} // namespace corvane
