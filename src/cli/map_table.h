#pragma once

#include <string_view>
#include <vector>

#include "cli/console.h"
#include "cli/folder_scan.h"
#include "map/treemap_builder.h"

namespace corvane {

/// Writes the tiles of a scanned folder for people: size, place and name of each, nested ones indented.
void writeMapTable(const FolderScan &scan, const std::vector<TreemapTile> &tiles, std::string_view home,
                   Console &console);

} // namespace corvane
