#pragma once

#include <memory>
#include <optional>
#include <string_view>

#include "core/file_node.h"
#include "platform/file_system.h"

namespace corvane {

/// A build folder inside a project, with the words that say what it is.
struct DevJunkItem {
    std::shared_ptr<FileNode> node;
    std::string_view kind; ///< of static storage
};

/// Recognises folders that build tools make again: by name, and by the tool's own file standing where that
/// tool puts it.
struct DevJunkRule {
    /// What the folder is, or nothing. At most four existence checks, and none unless the name is known.
    [[nodiscard]] static std::optional<std::string_view> match(const FileNode &node, FileSystem &files);
};

} // namespace corvane
