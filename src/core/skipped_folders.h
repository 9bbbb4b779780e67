#pragma once

#include <span>
#include <string_view>

namespace corvane {

/// The names of the folders directly inside `folder` (absolute path, bytes) that a walk never enters, by
/// `Scanner::skipPaths` and `systemVirtualFolders()`. Empty for all but a handful of folders. Any thread.
[[nodiscard]] std::span<const std::string_view> skippedNames(std::string_view folder);

} // namespace corvane
