#pragma once

#include <memory>
#include <optional>
#include <string_view>

#include "core/file_node.h"
#include "platform/file_system.h"

namespace corvane {

/// A build folder inside a project, with a label for its kind.
struct DevJunkItem {
    std::shared_ptr<FileNode> node;
    std::string_view kind; ///< static storage

    friend bool operator==(const DevJunkItem &, const DevJunkItem &) = default;
};

/// Returns the kind of build folder, or nothing if the folder is not one.
using DevJunkMatch = std::optional<std::string_view> (*)(const FileNode &node, FileSystem &files);

} // namespace corvane
