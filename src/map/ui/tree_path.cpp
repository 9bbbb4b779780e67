#include "map/ui/tree_path.h"

#include <algorithm>
#include <utility>

namespace corvane {

std::vector<std::shared_ptr<FileNode>> pathFromRoot(std::shared_ptr<FileNode> node)
{
    std::vector<std::shared_ptr<FileNode>> path;
    while (node) {
        path.push_back(node);
        node = node->parent.lock();
    }
    std::ranges::reverse(path);
    return path;
}

std::shared_ptr<FileNode> childTowards(const FileNode *folder, std::shared_ptr<FileNode> node)
{
    while (node) {
        std::shared_ptr<FileNode> parent = node->parent.lock();
        if (parent && parent.get() == folder)
            return node;
        node = std::move(parent);
    }
    return nullptr;
}

} // namespace corvane
