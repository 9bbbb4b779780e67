#pragma once

#include <functional>

#include "platform/file_descriptor.h"

namespace corvane {

/// Calls `visit` with every name in a folder, including "." and ".."; never if the folder is not open. For small
/// folders such as those in /proc, where failures can be ignored.
void forEachName(FileDescriptor folder, const std::function<void(const char *)> &visit);

} // namespace corvane
