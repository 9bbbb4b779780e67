#pragma once

#include <optional>

#include <QImage>
#include <QSizeF>

#include "map/ui/tile_tones.h"
#include "map/ui/treemap_layout.h"

namespace corvane {

class StorageStore;

/// The input of `paintTreemap`.
struct TreemapScene {
    const TreemapLayout &layout;
    const FileNode *folder = nullptr; ///< the folder laid out
    const StorageStore &store;        ///< for the selection
    QSizeF size;                      ///< points
    double devicePixelRatio = 1;
    std::optional<Color> onlyColor = {}; ///< replaces the colours of all tiles
};

/// Paints the whole map into one opaque picture: tiles, labels and selection marks. Main thread only.
[[nodiscard]] QImage paintTreemap(const TreemapScene &scene, TileTones &tones);

} // namespace corvane
