#pragma once

#include <optional>
#include <string_view>

#include "core/dev_junk_item.h"
#include "platform/file_system.h"

namespace corvane {

/// Recognizes folders that build tools recreate: by name, and by the presence of the tool's own file in its usual
/// place.
struct DevJunkRule {
    /// The kind of folder, or nothing. At most four existence checks, and none if the name is not a known one.
    [[nodiscard]] static std::optional<std::string_view> match(const FileNode &node, FileSystem &files);
};

} // namespace corvane
