#pragma once

#include <algorithm>
#include <cstdint>
#include <memory>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "core/scanner.h"
#include "platform/fake_file_system.h"

namespace corvane {

/// Names and sizes of a folder's children, in their order.
inline std::vector<std::pair<std::string, std::int64_t>> childrenOf(const FileNode &node)
{
    std::vector<std::pair<std::string, std::int64_t>> children;
    for (const auto &child : node.children)
        children.emplace_back(child->name, child->size);
    return children;
}

/// The node at a path relative to the root ("a/b"); fails the test if there is none.
inline std::shared_ptr<FileNode> at(const std::shared_ptr<FileNode> &root, std::string_view relative)
{
    std::shared_ptr<FileNode> node = root;
    while (!relative.empty()) {
        const std::size_t slash = std::min(relative.find('/'), relative.size());
        const auto found = std::ranges::find(node->children, relative.substr(0, slash),
                                             [](const auto &child) { return std::string_view(child->name); });
        if (found == node->children.end())
            throw std::logic_error("The tree has no " + std::string(relative));
        node = *found;
        relative.remove_prefix(std::min(slash + 1, relative.size()));
    }
    return node;
}

/// Scans of a file system in memory.
class ScannerTest : public testing::Test {
protected:
    std::shared_ptr<FileNode> scan(const std::string &path = "/r")
    {
        std::shared_ptr<FileNode> root = Scanner::scan(path, progress, files);
        EXPECT_TRUE(verify(*root));
        return root;
    }

    FakeFileSystem files;
    ScanProgress progress;
};

} // namespace corvane
