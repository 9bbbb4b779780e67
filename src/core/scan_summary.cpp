#include "core/scan_summary.h"

#include <algorithm>
#include <functional>

namespace corvane {
namespace {

/// A folder whose children are being visited. An explicit stack instead of recursion: a tree may be thousands of levels
/// deep.
struct Level {
    const std::vector<std::shared_ptr<FileNode>> *children;
    std::size_t next;
    bool insidePackage;
    bool insideJunk;
};

/// A file to be listed, with a copy of its size: dereferencing a million nodes while sorting makes the whole summary
/// take 0.40 s instead of 0.25 s.
struct ListedFile {
    std::int64_t size;
    const std::shared_ptr<FileNode> *node; // in its folder's children
};

/// Prefetches a node while others are processed: the nodes of a large tree are scattered over memory, and the cache
/// misses would cost more than all the processing.
void fetchAhead(const FileNode &node)
{
    __builtin_prefetch(&node.size);
    __builtin_prefetch(&node.kind);
}

} // namespace

ScanSummary ScanSummary::make(const std::shared_ptr<FileNode> &root, DevJunkMatch buildFolders, FileSystem &files)
{
    ScanSummary summary;
    std::vector<ListedFile> listed;
    std::vector<FileNode *> nodes; // their number must be known to reserve the index exactly

    const std::vector<std::shared_ptr<FileNode>> top{root};
    std::vector<Level> levels{{.children = &top, .next = 0, .insidePackage = false, .insideJunk = false}};
    while (!levels.empty()) {
        Level &level = levels.back();
        if (level.next == level.children->size()) {
            levels.pop_back();
            continue;
        }
        const std::shared_ptr<FileNode> &node = (*level.children)[level.next++];
        if (level.next < level.children->size())
            fetchAhead(*(*level.children)[level.next]);
        bool insidePackage = level.insidePackage;
        bool insideJunk = level.insideJunk;

        nodes.push_back(node.get());
        if (node->unreadable)
            ++summary.unreadableCount;
        switch (node->kind) {
        case FileNode::Kind::package:
            if (!insidePackage && node->size >= smallestListedPackage)
                listed.push_back({node->size, &node});
            insidePackage = true;
            break;
        case FileNode::Kind::file:
            if (!insidePackage)
                listed.push_back({node->size, &node});
            break;
        case FileNode::Kind::directory:
            if (!insidePackage && !insideJunk) {
                if (const auto kind = buildFolders(*node, files)) {
                    summary.devJunk.push_back({node, *kind});
                    insideJunk = true;
                }
            }
            break;
        }
        if (!node->children.empty())
            levels.push_back({&node->children, 0, insidePackage, insideJunk});
    }

    std::ranges::stable_sort(listed, std::ranges::greater{}, &ListedFile::size);
    summary.allFiles.reserve(listed.size());
    for (const ListedFile &file : listed)
        summary.allFiles.push_back(*file.node);
    std::ranges::stable_sort(summary.devJunk, std::ranges::greater{}, [](const auto &item) { return item.node->size; });
    summary.index.reserve(nodes.size());
    for (FileNode *node : nodes)
        summary.index.insert(*node);
    return summary;
}

std::vector<TypeSlice> ScanSummary::types(const FileNode &root)
{
    TypeSizes sizes;
    sizes.add(root);
    return sizes.slices();
}

} // namespace corvane
