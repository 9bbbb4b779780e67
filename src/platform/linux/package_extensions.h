#pragma once

#include <string_view>

namespace corvane {

/// Whether a folder whose name ends in this extension (no dot, any case) is shown as one document. A pure
/// function of its argument: any thread.
[[nodiscard]] bool isKnownPackageExtension(std::string_view extension);

} // namespace corvane
