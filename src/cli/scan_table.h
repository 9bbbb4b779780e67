#pragma once

#include <string_view>

#include "cli/console.h"
#include "cli/folder_scan.h"

namespace corvane {

/// Writes a scan for people: the folder's figures, its largest items and its types of files.
void writeScanTable(const FolderScan &scan, std::string_view home, Console &console);

} // namespace corvane
