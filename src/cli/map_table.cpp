#include "cli/map_table.h"

#include <algorithm>
#include <string>

#include <fmt/format.h>

#include "cli/folder_heading.h"
#include "cli/terminal_text.h"
#include "core/words/display_text.h"
#include "core/words/figures.h"

namespace corvane {

namespace {

constexpr std::size_t sizeColumns = 10;
constexpr std::size_t numberColumns = 8;
constexpr std::size_t columnsBeforeName = sizeColumns + 4 * (numberColumns + 1) + 2;
constexpr std::size_t leastNameColumns = 8;

std::string line(std::string_view size, std::string_view x, std::string_view y, std::string_view width,
                 std::string_view height, std::string_view name)
{
    return fmt::format("{} {} {} {} {}  {}\n", rightAligned(size, sizeColumns), rightAligned(x, numberColumns),
                       rightAligned(y, numberColumns), rightAligned(width, numberColumns),
                       rightAligned(height, numberColumns), name);
}

std::string points(double length)
{
    return fmt::format("{:.1f}", length);
}

std::string name(const TreemapTile &tile)
{
    const bool isFolder = tile.node && tile.node->kind != FileNode::Kind::file;
    return (tile.depth == 0 ? "" : "  ") + displayUtf8(tile.label) + (isFolder ? "/" : "");
}

} // namespace

void writeMapTable(const FolderScan &scan, const std::vector<TreemapTile> &tiles, std::string_view home,
                   Console &console)
{
    writeFolderHeading(scan, home, console);
    if (tiles.empty()) {
        writeNoItems(*scan.root, console);
        return;
    }
    console.out.write(console.faint(line("Size", "X", "Y", "Width", "Height", "Name")));
    const std::size_t columns = console.outColumns();
    const std::size_t nameColumns = std::max(columns - std::min(columns, columnsBeforeName), leastNameColumns);
    for (const TreemapTile &tile : tiles)
        console.out.write(line(formatByteCount(tile.size), points(tile.rect.x), points(tile.rect.y),
                               points(tile.rect.width), points(tile.rect.height), elided(name(tile), nameColumns)));
}

} // namespace corvane
