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

    friend bool operator==(const DevJunkItem &, const DevJunkItem &) = default;
};

/// The rule for build folders: what kind of one the folder is, or nothing.
using DevJunkMatch = std::optional<std::string_view> (*)(const FileNode &node, FileSystem &files);

} // namespace corvane
