#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace corvane {

/// The bytes of a name or path as text that is safe to show: valid UTF-8 on one line, without characters that
/// steer a terminal or turn the direction of what follows. Control characters become their pictures (U+2400 on),
/// what is no character U+FFFD.
[[nodiscard]] std::string displayText(std::string_view bytes);

/// How many columns of a terminal the text takes. `text` is valid UTF-8.
[[nodiscard]] std::size_t displayWidth(std::string_view text);

/// The text, cut at its end with "…" so that it takes at most `columns`.
[[nodiscard]] std::string elided(std::string_view text, std::size_t columns);

/// The text, cut at its front in the same way: of a path the end says more.
[[nodiscard]] std::string elidedAtFront(std::string_view text, std::size_t columns);

/// The text with spaces before it, so that it takes at least `columns`: for numbers.
[[nodiscard]] std::string rightAligned(std::string_view text, std::size_t columns);

/// The text with spaces after it.
[[nodiscard]] std::string leftAligned(std::string_view text, std::size_t columns);

/// "1 file", "12,345 files".
[[nodiscard]] std::string countText(std::int64_t count, std::string_view one, std::string_view many);

/// The share of `part` in `whole` as "12.3%".
[[nodiscard]] std::string percentText(std::int64_t part, std::int64_t whole);

/// The path as it is shown, with the user's home folder shortened to "~".
[[nodiscard]] std::string pathText(std::string_view path, std::string_view home);

} // namespace corvane
