#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "core/color.h"
#include "core/file_node.h"
#include "map/rect.h"

namespace corvane {

/// One input of the layout; an aggregate of several items has no node.
struct TreemapItem {
    std::shared_ptr<FileNode> node;
    std::string label; ///< a file name's bytes, or an aggregate's text
    std::int64_t size = 0;
};

/// One rectangle of the map.
struct TreemapTile {
    std::shared_ptr<FileNode> node; ///< null for an aggregate
    std::string label;
    std::int64_t size = 0;
    Rect rect; ///< points
    Color color;
    int depth = 0;          ///< 0: a child of the explored folder; 1: nested in such a tile
    bool hasNested = false; ///< whether nested tiles of depth 1 follow
};

/// Flattens a folder into the list of tiles that the map draws. Pure; reads the tree on the caller's thread only.
struct TreemapBuilder {
    static constexpr std::size_t topLimit = 60;
    static constexpr std::size_t nestedLimit = 40;
    // In points.
    static constexpr double topInset = 1.5; ///< half of the line between tiles of depth 0, on each side of a tile
    static constexpr double labelBand = 22; ///< height of a tile's label above its nested tiles

    [[nodiscard]] static std::vector<TreemapItem> items(const FileNode &folder, std::size_t limit);
    /// Parents precede their nested tiles; at most 61 x 41 tiles.
    [[nodiscard]] static std::vector<TreemapTile> tiles(const FileNode &folder, const Rect &rect);
    /// One of ten colours, by the index modulo 10.
    [[nodiscard]] static Color folderColor(int index);
    /// The colour of the item at `index` in its folder's list: by position for folders, by type for files and packages,
    /// grey for aggregates.
    [[nodiscard]] static Color itemColor(const FileNode *node, int index);
};

} // namespace corvane
