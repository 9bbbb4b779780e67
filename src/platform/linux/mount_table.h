#pragma once

#include <istream>
#include <memory>
#include <string>
#include <vector>

#include "platform/mounted_folder.h"

namespace corvane {

/// Everything that is mounted, in the kernel's order: of two with one path the later lies on top of the other. Empty
/// where the kernel does not tell. Read anew only where something has changed, since it is asked for before each item
/// of a removal. Any thread.
[[nodiscard]] std::shared_ptr<const std::vector<MountedFolder>> readMountTable();

/// The same of a text like that of "/proc/self/mountinfo".
[[nodiscard]] std::vector<MountedFolder> mountsIn(std::istream &mounts);

/// A path as the kernel's lists write it, where blanks and the like stand as "\040".
[[nodiscard]] std::string unescapedOctal(const std::string &text);

} // namespace corvane
