#pragma once

#include <memory>
#include <span>
#include <vector>

#include "cli/folder_scan.h"

namespace corvane {

/// The files of several scans with summaries, largest first. A file inside two of the folders is listed once.
[[nodiscard]] std::vector<std::shared_ptr<FileNode>> filesOf(std::span<const FolderScan> scans);

} // namespace corvane
