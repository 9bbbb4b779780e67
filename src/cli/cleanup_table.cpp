#include "cli/cleanup_table.h"

#include <algorithm>
#include <string>
#include <string_view>

#include <fmt/format.h>

#include "cleanup/cleanup_items.h"
#include "cli/terminal_text.h"
#include "core/checked_add.h"
#include "core/words/display_text.h"
#include "core/words/figures.h"
#include "platform/path.h"

namespace corvane {

namespace {

constexpr std::size_t sizeColumns = 10;
constexpr std::size_t riskColumns = 6;
constexpr std::size_t titleColumns = 28; // of the longest title
constexpr std::size_t columnsBeforeContents = sizeColumns + 2 + riskColumns + 2 + titleColumns + 2;
constexpr std::size_t leastFolderColumns = 8;

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
    const std::size_t columns = console.outColumns();
    const std::size_t taken = columnsBeforeContents + displayWidth(count);
    // Of the folders of several programs the way to the first would be told for all of them.
    const bool isInPlace = !item.entries.empty() && item.entries.front().name.empty();
    const std::string folder = formatPath(isInPlace ? containingFolder(item.entries.front().path) : item.path, home);
    return count + elidedAtFront(folder, std::max(columns - std::min(columns, taken), leastFolderColumns));
}

void writeRow(const CleanupItem &item, std::string_view home, Console &console)
{
    const std::string size = item.accessible ? formatByteCount(item.total()) : "?";
    console.out.write(fmt::format("{}  {}  {}  {}\n", rightAligned(size, sizeColumns),
                                  leftAligned(rawValue(item.def->risk), riskColumns),
                                  leftAligned(item.def->title, titleColumns), contents(item, home, console)));
}

void writeCommands(const std::vector<AdminCommand> &commands, Console &console)
{
    if (commands.empty())
        return;
    console.out.write(fmt::format("\n{}\n", console.strong("Needs the Administrator")));
    constexpr std::size_t columns = riskColumns + 2 + titleColumns;
    for (const AdminCommand &command : commands) {
        const std::string size = command.bytes ? formatByteCount(*command.bytes) : "?";
        console.out.write(fmt::format("{}  {}  {}\n", rightAligned(size, sizeColumns),
                                      leftAligned(command.title, columns), command.command));
    }
    console.out.write(console.faint("Corvane never runs these. Copy a command and run it in a terminal."));
    console.out.write('\n');
}

} // namespace

void writeCleanupTable(const CleanupReport &report, Console &console)
{
    std::int64_t total = 0;
    for (const CleanupItem &item : report.items)
        total = checkedAdd(total, item.total());
    console.out.write(console.strong(formatByteCount(total) + " could be cleaned up"));
    console.out.write(fmt::format(", {} of it safely\n", formatByteCount(safeTotal(report.items))));
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
    console.out.write(console.faint("\"corvane-cli cleanup --json\" names what lies in each; "
                                    "\"corvane-cli remove PATH\" removes it"));
    console.out.write('\n');
}

} // namespace corvane
