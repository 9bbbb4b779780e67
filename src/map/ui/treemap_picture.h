#pragma once

#include <optional>

#include <QImage>
#include <QSizeF>

#include "map/ui/tile_tones.h"
#include "map/ui/treemap_layout.h"

namespace corvane {

class StorageStore;

/// What a map is drawn from.
struct TreemapScene {
    const TreemapLayout &layout;
    const FileNode *folder = nullptr; ///< whose layout it is
    const StorageStore &store;        ///< knows what is selected
    QSizeF size;                      ///< points
    double devicePixelRatio = 1;
    std::optional<Color> onlyColor = {}; ///< in place of the tiles' own
};

/// The whole map as one opaque picture: tiles, labels, and the marks of what is selected.
[[nodiscard]] QImage paintTreemap(const TreemapScene &scene, TileTones &tones);

} // namespace corvane
