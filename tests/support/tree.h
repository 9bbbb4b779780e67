#pragma once

#include <algorithm>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <utility>

#include "core/file_node.h"

namespace corvane::test {

using NodePtr = std::shared_ptr<FileNode>;

/// A hand-made tree: every addition keeps the children in descending order and the ancestors' totals correct.
inline NodePtr makeRoot(std::string_view path = "/home/studio", FileNode::Kind kind = FileNode::Kind::directory)
{
    return std::make_shared<FileNode>(path, kind);
}

inline void account(const NodePtr &folder, std::int64_t size, std::int64_t files)
{
    for (NodePtr node = folder; node; node = node->parent.lock()) {
        node->size += size;
        node->fileCount += files;
        std::stable_sort(node->children.begin(), node->children.end(),
                         [](const NodePtr &a, const NodePtr &b) { return a->size > b->size; });
    }
}

/// Appends a child without a size; for large trees whose totals are filled in separately.
inline NodePtr makeChild(const NodePtr &folder, std::string name, FileNode::Kind kind)
{
    auto node = std::make_shared<FileNode>(folder->pathForChildren(), std::move(name), kind, folder);
    folder->children.push_back(node);
    return node;
}

inline NodePtr add(const NodePtr &folder, std::string name, FileNode::Kind kind, std::int64_t size, std::int64_t files)
{
    auto node = std::make_shared<FileNode>(folder->pathForChildren(), std::move(name), kind, folder);
    folder->children.push_back(node);
    node->size = size;
    node->fileCount = files;
    account(folder, size, files);
    return node;
}

inline NodePtr addFile(const NodePtr &folder, std::string name, std::int64_t size)
{
    return add(folder, std::move(name), FileNode::Kind::file, size, 1);
}

/// Adds a folder that grows with its contents.
inline NodePtr addFolder(const NodePtr &folder, std::string name)
{
    return add(folder, std::move(name), FileNode::Kind::directory, 0, 0);
}

inline NodePtr addPackage(const NodePtr &folder, std::string name, std::int64_t size)
{
    return add(folder, std::move(name), FileNode::Kind::package, size, 1);
}

inline void addSmallFiles(const NodePtr &folder, std::int64_t count, std::int64_t size)
{
    folder->smallFilesCount += count;
    folder->smallFilesSize += size;
    account(folder, size, count);
}

} // namespace corvane::test
