#include "map/treemap_builder.h"

#include <algorithm>
#include <array>
#include <span>
#include <utility>

#include "core/checked_add.h"
#include "core/file_type.h"
#include "core/words/figures.h"
#include "map/treemap.h"

namespace corvane {

namespace {

// All in points.
constexpr double nestedInset = 0.75;
constexpr double smallestTop = 1;
constexpr double smallestNested = 2;
constexpr double nestingWidth = 70;
constexpr double nestingHeight = 50;
constexpr double nestedMargin = 4;

constexpr std::array<Color, 10> palette{{
    {0.33, 0.43, 1.0},
    {0.62, 0.36, 0.96},
    {0.95, 0.37, 0.55},
    {0.98, 0.56, 0.22},
    {0.13, 0.68, 0.74},
    {0.22, 0.7, 0.45},
    {0.86, 0.42, 0.88},
    {0.3, 0.62, 0.98},
    {0.9, 0.68, 0.16},
    {0.47, 0.4, 0.85},
}};

bool exceeds(const Rect &rect, double width, double height)
{
    return rect.width > width && rect.height > height;
}

std::vector<Rect> layOut(std::span<const TreemapItem> items, const Rect &rect)
{
    std::vector<double> weights(items.size());
    std::transform(items.begin(), items.end(), weights.begin(),
                   [](const TreemapItem &item) { return static_cast<double>(item.size); });
    return Treemap::squarify(weights, rect);
}

TreemapTile makeTile(TreemapItem &&item, const Rect &rect, const Color &color, int depth)
{
    return {.node = std::move(item.node),
            .label = std::move(item.label),
            .size = item.size,
            .rect = rect,
            .color = color,
            .depth = depth,
            .hasNested = false};
}

void appendNested(const FileNode &folder, const Rect &outer, const Color &color, std::vector<TreemapTile> &tiles)
{
    const Rect inner{outer.x + nestedMargin, outer.y + TreemapBuilder::labelBand, outer.width - 2 * nestedMargin,
                     outer.height - (TreemapBuilder::labelBand + nestedMargin)};
    std::vector<TreemapItem> items = TreemapBuilder::items(folder, TreemapBuilder::nestedLimit);
    const std::vector<Rect> rects = layOut(items, inner);
    for (std::size_t i = 0; i < items.size(); ++i) {
        const Rect rect = rects[i].inset(nestedInset);
        if (exceeds(rect, smallestNested, smallestNested))
            tiles.push_back(makeTile(std::move(items[i]), rect, color, 1));
    }
}

} // namespace

std::vector<TreemapItem> TreemapBuilder::items(const FileNode &folder, std::size_t limit)
{
    const auto &children = folder.children;
    const std::size_t shown = std::min(limit, children.size());
    std::vector<TreemapItem> result;
    result.reserve(shown + 1);
    for (std::size_t i = 0; i < shown; ++i)
        result.push_back({children[i], children[i]->name, children[i]->size});

    std::int64_t rest = 0;
    for (std::size_t i = shown; i < children.size(); ++i)
        rest = checkedAdd(rest, children[i]->size);

    if (rest < 1) {
        const std::int64_t count = folder.smallFilesCount;
        if (folder.smallFilesSize > 0)
            result.push_back({nullptr, formatCount(count, "small file", "small files"), folder.smallFilesSize});
    } else {
        const auto count = static_cast<std::int64_t>(children.size() - shown);
        result.push_back(
            {nullptr, formatCount(count, "more item", "more items"), checkedAdd(rest, folder.smallFilesSize)});
    }

    std::erase_if(result, [](const TreemapItem &item) { return item.size < 1; });
    std::stable_sort(result.begin(), result.end(),
                     [](const TreemapItem &a, const TreemapItem &b) { return a.size > b.size; });
    return result;
}

std::vector<TreemapTile> TreemapBuilder::tiles(const FileNode &folder, const Rect &rect)
{
    std::vector<TreemapTile> result;
    std::vector<TreemapItem> topItems = items(folder, topLimit);
    const std::vector<Rect> rects = layOut(topItems, rect);
    for (std::size_t i = 0; i < topItems.size(); ++i) {
        const Rect inset = rects[i].inset(topInset);
        if (!exceeds(inset, smallestTop, smallestTop))
            continue;
        const Color color = itemColor(topItems[i].node.get(), static_cast<int>(i));
        result.push_back(makeTile(std::move(topItems[i]), inset, color, 0));
        const std::shared_ptr<FileNode> node = result.back().node;
        if (node && node->kind == FileNode::Kind::directory && exceeds(inset, nestingWidth, nestingHeight)) {
            result.back().hasNested = true;
            appendNested(*node, inset, color, result);
        }
    }
    return result;
}

Color TreemapBuilder::folderColor(int index)
{
    constexpr int count = static_cast<int>(palette.size());
    return palette[static_cast<std::size_t>((index % count + count) % count)];
}

Color TreemapBuilder::itemColor(const FileNode *node, int index)
{
    if (!node)
        return FileType(FileType::small).color();
    if (node->kind == FileNode::Kind::directory)
        return folderColor(index);
    return FileType::from(node->extension(), node->kind == FileNode::Kind::package).color();
}

} // namespace corvane
