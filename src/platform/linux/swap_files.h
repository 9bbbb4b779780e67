#pragma once

#include <string_view>
#include <vector>

#include "platform/volume.h"

namespace corvane {

/// The files, not the partitions, that the kernel swaps to.
[[nodiscard]] std::vector<SwapFile> listedSwapFiles();

/// Those that a text like that of "/proc/swaps" lists.
[[nodiscard]] std::vector<SwapFile> swapFilesIn(std::string_view text);

} // namespace corvane
