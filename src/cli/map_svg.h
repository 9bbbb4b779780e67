#pragma once

#include <vector>

#include "cli/folder_scan.h"
#include "cli/output.h"
#include "map/treemap_builder.h"

namespace corvane {

/// Writes the map as a standalone picture: one SVG file with fills and labels as in the window's light theme, and each
/// tile's name and size as its tooltip. Text widths are estimated, so labels leave some margin.
void writeMapSvg(const FolderScan &scan, const std::vector<TreemapTile> &tiles, const Rect &size, Output &out);

} // namespace corvane
