#include "core/scan_summary.h"

#include <algorithm>
#include <array>

#include "core/checked_add.h"
#include "core/file_type.h"

namespace corvane {
namespace {

/// Packages of fewer bytes are not listed among the files.
constexpr std::int64_t smallestListedPackage = 1'000'000;

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
    std::array<std::int64_t, FileType::count> sizes{};
    const auto add = [&](FileType type, std::int64_t size) { sizes[type] = checkedAdd(sizes[type], size); };

    std::vector<const FileNode *> pending{&root};
    while (!pending.empty()) {
        const FileNode &node = *pending.back();
        pending.pop_back();
        if (node.kind != FileNode::Kind::directory) {
            add(FileType::from(node.extension(), node.kind == FileNode::Kind::package), node.size);
            continue;
        }
        add(FileType::small, node.smallFilesSize);
        for (const std::shared_ptr<FileNode> &child : node.children)
            pending.push_back(child.get());
    }

    std::vector<TypeSlice> slices;
    for (const FileType type : FileType::allCases()) {
        if (sizes[type] > 0)
            slices.push_back({type, sizes[type]});
    }
    std::ranges::stable_sort(slices, std::ranges::greater{}, &TypeSlice::size);
    return slices;
}

} // namespace corvane
