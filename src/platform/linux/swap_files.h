#pragma once

#include <string_view>
#include <vector>

#include "platform/volume.h"

namespace corvane {

/// The swap files in use, without swap partitions.
[[nodiscard]] std::vector<SwapFile> listedSwapFiles();

/// The swap files in a text in the format of "/proc/swaps".
[[nodiscard]] std::vector<SwapFile> swapFilesIn(std::string_view text);

} // namespace corvane
