#include "cli/scanned_files.h"

#include <algorithm>
#include <cstddef>
#include <functional>

namespace corvane {

std::vector<std::shared_ptr<FileNode>> filesOf(std::span<const FolderScan> scans)
{
    std::vector<std::shared_ptr<FileNode>> files;
    for (std::size_t i = 0; i < scans.size(); ++i) {
        const std::span<const FolderScan> before = scans.first(i);
        for (const std::shared_ptr<FileNode> &file : scans[i].summary->allFiles) {
            const bool isKnown = std::ranges::any_of(
                before, [&](const FolderScan &scan) { return scan.summary->index.find(file->path()) != nullptr; });
            if (!isKnown)
                files.push_back(file);
        }
    }
    if (scans.size() > 1)
        std::ranges::stable_sort(files, std::ranges::greater(), &FileNode::size);
    return files;
}

} // namespace corvane
