#pragma once

#include <string>
#include <string_view>

#include "cli/path_argument.h"

namespace corvane {

/// The folder that an argument of the window's program means: a path, or the address that other programs hand over in
/// its place ("file:///home/ann/My%20Photos"). What exists under that name is a path, whatever it looks like. Refuses
/// what `existingFolder` refuses, and addresses of what no disk of this computer holds.
[[nodiscard]] Judged<std::string> folderArgument(std::string_view argument, FileSystem &files);

} // namespace corvane
