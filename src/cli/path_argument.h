#pragma once

#include <string>
#include <string_view>

#include <tl/expected.hpp>

#include "platform/file_system.h"

namespace corvane {

/// A value, or the sentence that says what is wrong with an argument and what would work.
template <typename T>
using Judged = tl::expected<T, std::string>;

/// A path argument with the current folder before it where it is relative; nothing else changes.
[[nodiscard]] Judged<std::string> withCurrentFolder(std::string_view argument);

/// A path argument as absolute bytes without ".", ".." and trailing slashes. The last component is not resolved, so
/// that a symbolic link stays the link, also where it was given as "link/". "~" is nothing special: the
/// shell has expanded what was meant so, and a file may bear that name.
[[nodiscard]] Judged<std::string> absolutePath(std::string_view argument, FileSystem &files);

/// The absolute path of a folder that can be scanned, given as an argument. Refuses what does not exist and what is
/// no folder; a link to a folder is one. Whether the folder can be read is not asked.
[[nodiscard]] Judged<std::string> existingFolder(std::string_view argument, FileSystem &files);

/// The absolute path and the facts of an item of any kind, given as an argument.
struct ExistingItem {
    std::string path;
    ItemFacts facts;
};
[[nodiscard]] Judged<ExistingItem> existingItem(std::string_view argument, FileSystem &files);

} // namespace corvane
