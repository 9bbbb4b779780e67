#pragma once

#include <string>
#include <string_view>

#include "core/path_argument.h"

namespace corvane {

/// The folder for an argument of the window program: a path, or the URL that other programs pass instead
/// ("file:///home/ann/My%20Photos"). If an item of that name exists, the argument is a path, whatever it looks like.
/// Fails like `existingFolder`, and for URLs that are not on a local disk.
[[nodiscard]] Judged<std::string> folderArgument(std::string_view argument, FileSystem &files);

} // namespace corvane
