#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "platform/time.h"

namespace corvane {

/// Moves a terminal's cursor to the start of its line and clears the line.
inline constexpr std::string_view clearLine = "\r\x1b[K";

/// The date in the user's time zone, such as "2026-11-22"; "–" for `distantPast` and for a time that is out of range.
[[nodiscard]] std::string dateText(Time time);

/// The date and the time of day, such as "2026-11-22 09:41"; "–" in the same cases.
[[nodiscard]] std::string dateTimeText(Time time);

/// The number of terminal columns that the text takes. For this and the functions below, texts are valid UTF-8.
[[nodiscard]] std::size_t displayWidth(std::string_view text);

/// The text, if necessary with its end replaced by "…", so that it takes at most `columns`.
[[nodiscard]] std::string elided(std::string_view text, std::size_t columns);

/// The text, if necessary with its start replaced by "…": for paths, whose last components matter most.
[[nodiscard]] std::string elidedAtFront(std::string_view text, std::size_t columns);

/// The text with spaces before it, so that it takes at least `columns`.
[[nodiscard]] std::string rightAligned(std::string_view text, std::size_t columns);

/// The text with some spaces replaced by line breaks, so that no line exceeds `columns`, except one with a single
/// longer word. The first line is written at column `start`; the others are indented by as many spaces.
[[nodiscard]] std::string wrapped(std::string_view text, std::size_t columns, std::size_t start);

/// The text with spaces after it, so that it takes at least `columns`.
[[nodiscard]] std::string leftAligned(std::string_view text, std::size_t columns);

} // namespace corvane
