#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace corvane {

/// The bytes of a figure with a unit at the start of what a tool has written, such as "34.7GB", "512.0M", "1.2 kB" or
/// "0B": in thousands, or in 1,024s where that is how the tool counts. Nothing where there is none.
[[nodiscard]] std::optional<std::int64_t> toldSize(std::string_view text, int thousand);

} // namespace corvane
