#pragma once

#include <span>
#include <string_view>

#include "cli/console.h"
#include "cli/folder_scan.h"

namespace corvane {

/// Writes what stands above a table: the folder, its figures, and that the scan was stopped if it was.
void writeFolderHeading(const FolderScan &scan, std::string_view home, Console &console);

/// Writes what the figures of the scans do not count.
void writeNotes(std::span<const FolderScan> scans, Console &console);

/// Writes what stands in the place of a table that would have no rows.
void writeNoItems(const FileNode &folder, Console &console);

} // namespace corvane
