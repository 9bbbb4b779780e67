#include "cli/scan_table.h"

#include <algorithm>
#include <string>

#include <fmt/format.h>

#include "cli/folder_heading.h"
#include "cli/size_bar.h"
#include "cli/terminal_text.h"
#include "core/words/display_text.h"
#include "core/words/figures.h"
#include "map/treemap_builder.h"

namespace corvane {

namespace {

constexpr std::size_t itemLimit = 20;
constexpr std::size_t sizeColumns = 10;
constexpr std::size_t percentColumns = 6;
constexpr std::size_t barColumns = 20;
constexpr std::size_t columnsBeforeName = sizeColumns + 2 + percentColumns + 2 + barColumns + 2;
constexpr std::size_t leastNameColumns = 8;

struct Row {
    std::int64_t size;
    Color color;
    std::string name;
};

void writeRow(const Row &row, std::int64_t whole, Console &console)
{
    const std::size_t columns = console.outColumns();
    const std::size_t nameColumns = std::max(columns - std::min(columns, columnsBeforeName), leastNameColumns);
    const double share = whole > 0 ? static_cast<double>(row.size) / static_cast<double>(whole) : 0;
    console.out.write(fmt::format("{}  {}  {}  {}\n", rightAligned(formatByteCount(row.size), sizeColumns),
                                  rightAligned(formatPercent(percentOf(row.size, whole)), percentColumns),
                                  console.colored(sizeBar(share, barColumns), row.color),
                                  elided(row.name, nameColumns)));
}

void writeItems(const FileNode &root, Console &console)
{
    const std::vector<TreemapItem> items = TreemapBuilder::items(root, itemLimit);
    if (items.empty()) {
        writeNoItems(root, console);
        return;
    }
    console.out.write(console.strong("Largest items") + "\n");
    for (std::size_t i = 0; i < items.size(); ++i) {
        const TreemapItem &item = items[i];
        const bool isFolder = item.node && item.node->kind != FileNode::Kind::file;
        writeRow({item.size, TreemapBuilder::itemColor(item.node.get(), static_cast<int>(i)),
                  displayUtf8(item.label) + (isFolder ? "/" : "")},
                 root.size, console);
    }
}

void writeTypes(const FileNode &root, Console &console)
{
    const std::vector<TypeSlice> types = ScanSummary::types(root);
    if (types.empty())
        return;
    console.out.write("\n" + console.strong("File types") + "\n");
    for (const TypeSlice &slice : types)
        writeRow({slice.size, slice.type.color(), std::string(slice.type.label())}, root.size, console);
}

} // namespace

void writeScanTable(const FolderScan &scan, std::string_view home, Console &console)
{
    writeFolderHeading(scan, home, console);
    writeItems(*scan.root, console);
    writeTypes(*scan.root, console);
}

} // namespace corvane
