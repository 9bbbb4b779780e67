#pragma once

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "support/tree.h"

namespace corvane {

// Deep enough that recursion with one stack frame per level would overflow the stack.
constexpr int deep = 100'000;

/// A chain of nested folders with a file of `bytes` bytes at the bottom.
inline test::NodePtr makeDeepTree(std::int64_t bytes, test::NodePtr *bottom = nullptr)
{
    test::NodePtr root = test::makeRoot("/deep");
    test::NodePtr folder = root;
    for (int level = 0; level < deep; ++level) {
        auto child = std::make_shared<FileNode>(folder->pathForChildren(), "d", FileNode::Kind::directory, folder);
        folder->size = bytes;
        folder->fileCount = 1;
        folder->children.push_back(child);
        folder = std::move(child);
    }
    folder->size = bytes;
    folder->fileCount = 1;
    auto file = std::make_shared<FileNode>(folder->pathForChildren(), "movie.mp4", FileNode::Kind::file, folder);
    file->size = bytes;
    folder->children.push_back(file);
    if (bottom != nullptr)
        *bottom = file;
    return root;
}

/// The names of a folder's children, in their order.
inline std::vector<std::string> names(const FileNode &folder)
{
    std::vector<std::string> result;
    for (const test::NodePtr &child : folder.children)
        result.push_back(child->name);
    return result;
}

} // namespace corvane
