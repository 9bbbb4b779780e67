#pragma once

#include <string_view>

namespace corvane {

/// Whether a folder with this name extension (no dot, any case) is shown as one document. A pure function: any thread.
[[nodiscard]] bool isKnownPackageExtension(std::string_view extension);

} // namespace corvane
