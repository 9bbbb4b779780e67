#pragma once

namespace corvane {

class TreemapView;

/// Registers the map with Qt's accessibility: as a list whose entries are the tiles. Further calls do nothing. Main
/// thread only, like the functions below.
void installTreemapAccessibility();

/// Notifies assistive tools that the map has new tiles.
void notifyTilesChanged(TreemapView *view);

/// Notifies assistive tools that the keyboard focus has moved to a tile.
void notifyTileFocused(TreemapView *view, int index);

} // namespace corvane
