#pragma once

#include <optional>
#include <string_view>

#include "core/dev_junk_item.h"
#include "platform/file_system.h"

namespace corvane {

/// Recognises folders that build tools make again: by name, and by the tool's own file standing where that
/// tool puts it.
struct DevJunkRule {
    /// What the folder is, or nothing. At most four existence checks, and none unless the name is known.
    [[nodiscard]] static std::optional<std::string_view> match(const FileNode &node, FileSystem &files);
};

} // namespace corvane
