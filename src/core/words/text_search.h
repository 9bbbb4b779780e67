#pragma once

#include <string>
#include <string_view>

namespace corvane {

/// How letters pair up when case is ignored: Turkish and Azerbaijani pair "I" with "ı" and "İ" with "i", every other
/// language "I" with "i".
enum class Casing { usual, turkic };

/// The casing for a locale name, such as "tr_TR.UTF-8".
[[nodiscard]] Casing casingOf(std::string_view locale);

/// The casing of the user's language, from the environment.
[[nodiscard]] Casing userCasing();

/// The bytes of a name prepared for a case-insensitive search: letters case-folded ("ß" is "ss"), accents composed with
/// their letters. Invalid UTF-8 bytes become U+FFFD.
[[nodiscard]] std::string searchable(std::string_view bytes, Casing casing);

/// Whether a text contains another one, both `searchable`. A match that starts or ends inside a combining sequence does
/// not count: "e" is not in "é", in either normalization form. Every text contains the empty text.
[[nodiscard]] bool holds(std::string_view text, std::string_view part);

} // namespace corvane
