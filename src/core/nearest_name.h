#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace corvane {

/// The most likely intended name for a mistyped word: one that the word is a prefix of, or else the one with the
/// smallest edit distance (a letter inserted, missing, wrong, or transposed). Ignores case. Nothing if no name is close
/// enough; the first of several equally close ones.
[[nodiscard]] std::optional<std::string> nearestName(std::string_view word, std::span<const std::string> names);

} // namespace corvane
