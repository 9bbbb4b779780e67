#pragma once

#include <functional>

#include "platform/file_descriptor.h"

namespace corvane {

/// Calls `visit` with every name in a folder, "." and ".." among them; never for one that is not open. For the small
/// folders of the kernel and of the system, whose failures mean nothing.
void forEachName(FileDescriptor folder, const std::function<void(const char *)> &visit);

} // namespace corvane
