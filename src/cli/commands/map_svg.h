#pragma once

#include <vector>

#include "cli/folder_scan.h"
#include "cli/output.h"
#include "map/treemap_builder.h"

namespace corvane {

/// Writes the map as a picture of its own: one SVG file with fills and labels as the window draws them in
/// light, and each tile's name and size as its tooltip. Widths of text are estimated, so a label leaves some room.
void writeMapSvg(const FolderScan &scan, const std::vector<TreemapTile> &tiles, const Rect &size, Output &out);

} // namespace corvane
