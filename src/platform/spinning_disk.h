#pragma once

#include <string>

namespace corvane {

/// Whether the folder lies on a disk that turns, where many questions at once cost more than one after another. False
/// where the system does not tell.
[[nodiscard]] bool isOnSpinningDisk(const std::string &folder);

} // namespace corvane
