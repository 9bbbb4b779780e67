#pragma once

#include <string>

namespace corvane {

/// Whether the folder is on a spinning disk, where parallel requests are slower than sequential ones. False if unknown.
[[nodiscard]] bool isOnSpinningDisk(const std::string &folder);

} // namespace corvane
