#pragma once

#include "core/file_node.h"
#include "platform/file_system.h"

namespace corvane {

/// What an item outside a tree counts as: whatever is no folder, a link included, as a file.
[[nodiscard]] constexpr FileNode::Kind kindOf(EntryType type, bool isPackage)
{
    if (type != EntryType::directory)
        return FileNode::Kind::file;
    return isPackage ? FileNode::Kind::package : FileNode::Kind::directory;
}

} // namespace corvane
