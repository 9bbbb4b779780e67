#include "cli/duplicates_table.h"

#include <algorithm>
#include <string>

#include <fmt/format.h>

#include "cli/terminal_text.h"
#include "core/words/display_text.h"
#include "core/words/figures.h"

namespace corvane {

namespace {

constexpr std::size_t indent = 2;
constexpr std::size_t leastPathColumns = 8;

std::string shownPath(const FileNode &file, std::string_view home, std::size_t taken, const Console &console)
{
    const std::size_t columns = console.outColumns();
    return elidedAtFront(formatPath(file.path(), home), std::max(columns - std::min(columns, taken), leastPathColumns));
}

/// The name of a file beside another one: its path where the two have one name.
std::string nameBeside(const FileNode &file, const FileNode &other, std::string_view home)
{
    return file.name == other.name ? formatPath(file.path(), home) : displayUtf8(file.name);
}

void writeGroup(const DuplicateGroup &group, std::string_view home, Console &console)
{
    const std::string heading = fmt::format(
        "{} copies × {}", formatCount(static_cast<std::int64_t>(group.files.size())), formatByteCount(group.size));
    console.out.write(fmt::format("\n{}, {} wasted\n", console.strong(heading), formatByteCount(group.reclaimable())));
    const std::vector<std::optional<std::size_t>> shared = group.sharedStorage();
    for (std::size_t i = 0; i < group.files.size(); ++i) {
        const std::string remark =
            shared[i] ? "  shares its storage with " + nameBeside(*group.files[*shared[i]], *group.files[i], home) : "";
        const std::string path = shownPath(*group.files[i], home, indent + displayWidth(remark), console);
        console.out.write(fmt::format("{:{}}{}{}\n", "", indent, path, console.faint(remark)));
    }
}

} // namespace

void writeDuplicatesTable(const DuplicatesFound &found, std::string_view home, Console &console)
{
    if (found.isStopped)
        console.out.write(fmt::format("{}\n", console.strong(searchStoppedText)));
    if (found.groups.empty()) {
        if (!found.isStopped)
            console.out.write("No duplicates found. Every file over 1 MB in this folder is unique.\n");
        return;
    }
    const auto count = static_cast<std::int64_t>(found.groups.size());
    console.out.write(console.strong(formatCount(count, "group", "groups")));
    console.out.write(fmt::format(" · {} wasted\n", formatByteCount(totalReclaimable(found.groups))));
    for (const DuplicateGroup &group : found.groups)
        writeGroup(group, home, console);
}

} // namespace corvane
