#pragma once

#include <cstddef>
#include <string>

#include "platform/error.h"

namespace corvane {

/// `FileSystem::readFile` for the item of that name relative to an open folder's number, or AT_FDCWD; `path` is for the
/// error.
[[nodiscard]] Expected<std::string> readRegularFile(int folder, const char *name, const std::string &path,
                                                    std::size_t most);

} // namespace corvane
