#pragma once

namespace corvane {

class TreemapView;

/// Teaches the accessibility of this program to read a map: the map is a list, each tile an entry of it.
/// Does nothing when called again.
void installTreemapAccessibility();

/// The map has other tiles than before.
void notifyTilesChanged(TreemapView *view);

/// The keyboard has come to a tile.
void notifyTileFocused(TreemapView *view, int index);

} // namespace corvane
