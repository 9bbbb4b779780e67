#pragma once

#include <string>
#include <string_view>

#include <tl/expected.hpp>

#include "platform/file_system.h"

namespace corvane {

/// A value, or a sentence that explains what is wrong with an argument and what would be valid.
template <typename T>
using Judged = tl::expected<T, std::string>;

/// What is wrong with an empty path argument.
inline constexpr std::string_view emptyPathText = "the path is empty; \".\" is the current folder";

/// Prepends the current folder to a relative path argument; changes nothing else.
[[nodiscard]] Judged<std::string> withCurrentFolder(std::string_view argument);

/// A path argument as absolute bytes without ".", ".." and trailing slashes. Does not resolve the last component, so a
/// symbolic link stays a link, even if given as "link/". "~" is not expanded: the shell has already done that, and a
/// file may have that name.
[[nodiscard]] Judged<std::string> absolutePath(std::string_view argument, FileSystem &files);

/// The absolute path of a folder to scan, given as an argument. Fails if it does not exist or is not a folder; a link
/// to a folder is accepted. Does not check whether the folder is readable.
[[nodiscard]] Judged<std::string> existingFolder(std::string_view argument, FileSystem &files);

/// The absolute path and the facts of an item of any kind, given as an argument.
struct ExistingItem {
    std::string path;
    ItemFacts facts;
};
[[nodiscard]] Judged<ExistingItem> existingItem(std::string_view argument, FileSystem &files);

} // namespace corvane
