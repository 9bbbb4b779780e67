#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace corvane {

/// The bytes for a figure with a unit at the start of a tool's output, such as "34.7GB", "512.0M", "1.2 kB" or "0B";
/// `thousand` is 1,000 or 1,024, whichever the tool uses. Nothing if there is no figure.
[[nodiscard]] std::optional<std::int64_t> toldSize(std::string_view text, int thousand);

} // namespace corvane
