#pragma once

#include <span>
#include <string_view>

#include "cli/console.h"
#include "cli/folder_scan.h"

namespace corvane {

/// Writes the heading of a table: the folder, its figures, and whether the scan was stopped.
void writeFolderHeading(const FolderScan &scan, std::string_view home, Console &console);

/// Writes what the scans' figures leave out.
void writeNotes(std::span<const FolderScan> scans, Console &console);

/// Writes the placeholder for a table without rows.
void writeNoItems(const FileNode &folder, Console &console);

} // namespace corvane
