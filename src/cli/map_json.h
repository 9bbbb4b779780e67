#pragma once

#include <vector>

#include "cli/folder_scan.h"
#include "cli/output.h"
#include "map/treemap_builder.h"

namespace corvane {

/// Writes the tiles of a scanned folder as one JSON document; one of a scan that was stopped says so.
void writeMapJson(const FolderScan &scan, const std::vector<TreemapTile> &tiles, Output &out);

} // namespace corvane
