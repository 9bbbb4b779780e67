#pragma once

#include <vector>

#include "cli/arguments.h"
#include "core/scan_filter.h"

namespace corvane {

// The options of the commands that scan folders.

/// Options that leave items out of a scan.
[[nodiscard]] std::vector<Option> excludeOptions();

/// The option that counts the lengths of files.
[[nodiscard]] Option apparentOption();

/// The filter that these options define. Throws a `UsageError` if a value is invalid.
[[nodiscard]] ScanFilter scanFilterOf(const Arguments &arguments);

} // namespace corvane
