#pragma once

#include "core/file_node.h"
#include "platform/file_system.h"

namespace corvane {

/// The kind of an item outside a tree: anything that is not a folder, including a link, counts as a file.
[[nodiscard]] constexpr FileNode::Kind kindOf(EntryType type, bool isPackage)
{
    if (type != EntryType::directory)
        return FileNode::Kind::file;
    return isPackage ? FileNode::Kind::package : FileNode::Kind::directory;
}

} // namespace corvane
