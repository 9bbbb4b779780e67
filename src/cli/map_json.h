#pragma once

#include <vector>

#include "cli/folder_scan.h"
#include "cli/output.h"
#include "map/treemap_builder.h"

namespace corvane {

/// Writes the tiles of a scanned folder as one JSON document, with what is missing from them.
void writeMapJson(const FolderScan &scan, const std::vector<TreemapTile> &tiles, Output &out);

} // namespace corvane
