#include "cli/cleanup_table.h"

#include <algorithm>
#include <string>
#include <string_view>

#include <fmt/format.h>

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

bool isShown(const CleanupItem &item)
{
    return !item.accessible || !item.entries.empty();
}

std::string contents(const CleanupItem &item, std::string_view home, const Console &console)
{
    if (!item.accessible)
        return "cannot be read";
    const std::string count = formatCount(static_cast<std::int64_t>(item.entries.size()), "item", "items") + " in ";
    const std::size_t columns = console.outColumns();
    const std::size_t taken = columnsBeforeContents + displayWidth(count);
    const std::string folder = formatPath(containingFolder(item.entries.front().path), home);
    return count + elidedAtFront(folder, std::max(columns - std::min(columns, taken), leastFolderColumns));
}

void writeRow(const CleanupItem &item, std::string_view home, Console &console)
{
    const std::string size = item.accessible ? formatByteCount(item.total()) : "?";
    console.out.write(fmt::format("{}  {}  {}  {}\n", rightAligned(size, sizeColumns),
                                  leftAligned(rawValue(item.def->risk), riskColumns),
                                  leftAligned(item.def->title, titleColumns), contents(item, home, console)));
}

} // namespace

void writeCleanupTable(const std::vector<CleanupItem> &items, std::string_view home, Console &console)
{
    std::int64_t total = 0;
    std::int64_t safe = 0;
    for (const CleanupItem &item : items) {
        total = checkedAdd(total, item.total());
        if (item.def->risk == CleanupRisk::safe)
            safe = checkedAdd(safe, item.total());
    }
    console.out.write(console.strong(formatByteCount(total) + " could be cleaned up"));
    console.out.write(fmt::format(", {} of it safely\n", formatByteCount(safe)));
    for (const CleanupGroup group : allCleanupGroups) {
        const auto belongs = [group](const CleanupItem &item) { return item.def->group == group && isShown(item); };
        if (std::ranges::none_of(items, belongs))
            continue;
        console.out.write(fmt::format("\n{}\n", console.strong(heading(group))));
        for (const CleanupItem &item : items) {
            if (belongs(item))
                writeRow(item, home, console);
        }
    }
    console.out.write('\n');
    console.out.write(console.faint("\"corvane-cli cleanup --json\" names what lies in each; "
                                    "\"corvane-cli remove PATH\" removes it"));
    console.out.write('\n');
}

} // namespace corvane
