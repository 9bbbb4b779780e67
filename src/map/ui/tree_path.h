#pragma once

#include <memory>
#include <vector>

#include "core/file_node.h"

namespace corvane {

/// The folders from the root of the tree to the node, both included; empty for null.
[[nodiscard]] std::vector<std::shared_ptr<FileNode>> pathFromRoot(std::shared_ptr<FileNode> node);

/// The child of `folder` that is `node` or an ancestor of it; null if `node` is not inside the folder.
[[nodiscard]] std::shared_ptr<FileNode> childTowards(const FileNode *folder, std::shared_ptr<FileNode> node);

} // namespace corvane
