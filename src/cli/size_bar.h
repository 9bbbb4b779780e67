#pragma once

#include <cstddef>
#include <string>

namespace corvane {

/// A bar of block characters with a resolution of an eighth of a column, padded with spaces to `columns`. `fraction` is
/// from 0 to 1; anything above 0 is visible.
[[nodiscard]] std::string sizeBar(double fraction, std::size_t columns);

} // namespace corvane
