#pragma once

#include "cli/folder_scan.h"
#include "cli/output.h"

namespace corvane {

/// Writes a scan with its summary as one JSON document. Neither recurses nor holds the document: a tree may have
/// hundreds of thousands of nodes and thousands of levels.
void writeScanJson(const FolderScan &scan, Output &out);

} // namespace corvane
