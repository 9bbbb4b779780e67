#pragma once

#include <cstddef>
#include <string>

namespace corvane {

/// A bar of block characters, eighths of a column fine and `columns` wide with the empty part as spaces.
/// `fraction` is from 0 to 1; anything above 0 shows.
[[nodiscard]] std::string sizeBar(double fraction, std::size_t columns);

} // namespace corvane
