#pragma once

#include <istream>
#include <memory>
#include <string>
#include <vector>

#include "platform/mounted_folder.h"

namespace corvane {

/// All mounts in the kernel's order: of two at one path the later one is on top. Empty if unknown. Cached until
/// something changes, since it is needed before each item of a removal. Any thread.
[[nodiscard]] std::shared_ptr<const std::vector<MountedFolder>> readMountTable();

/// The same for a text in the format of "/proc/self/mountinfo".
[[nodiscard]] std::vector<MountedFolder> mountsIn(std::istream &mounts);

/// Decodes a path from the kernel's lists, in which spaces and the like are written as "\040".
[[nodiscard]] std::string unescapedOctal(const std::string &text);

} // namespace corvane
