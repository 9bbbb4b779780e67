#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "platform/time.h"

namespace corvane {

/// Takes a terminal back to the start of its line, which is empty then.
inline constexpr std::string_view clearLine = "\r\x1b[K";

/// A moment in the user's time zone: "2026-11-22". "–" for one that has no date there.
[[nodiscard]] std::string dateText(Time time);

/// The same to the minute: "2026-11-22 09:41".
[[nodiscard]] std::string dateTimeText(Time time);

/// How many columns of a terminal the text takes. `text` is valid UTF-8.
[[nodiscard]] std::size_t displayWidth(std::string_view text);

/// The text, cut at its end with "…" so that it takes at most `columns`.
[[nodiscard]] std::string elided(std::string_view text, std::size_t columns);

/// The text, cut at its front in the same way: of a path the end says more.
[[nodiscard]] std::string elidedAtFront(std::string_view text, std::size_t columns);

/// The text with spaces before it, so that it takes at least `columns`: for numbers.
[[nodiscard]] std::string rightAligned(std::string_view text, std::size_t columns);

/// The text with line breaks in the place of spaces, so that it stands in `columns` where its words let it. It starts
/// at column `start`, and so does each further line.
[[nodiscard]] std::string wrapped(std::string_view text, std::size_t columns, std::size_t start);

/// The text with spaces after it.
[[nodiscard]] std::string leftAligned(std::string_view text, std::size_t columns);

} // namespace corvane
