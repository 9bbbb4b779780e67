#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace corvane {

/// The name that a mistyped word most likely stands for: one that it begins, or else the one that the fewest slips
/// of the fingers lead to (a letter too many, missing, wrong, or two changed about). Capital letters count as small
/// ones. None where every name is too far away, of several equally near the first.
[[nodiscard]] std::optional<std::string> nearestName(std::string_view word, std::span<const std::string> names);

} // namespace corvane
