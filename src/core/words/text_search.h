#pragma once

#include <string>
#include <string_view>

namespace corvane {

/// Which letters belong together when case is not looked at: Turkish and Azerbaijani pair "I" with "ı" and "İ" with
/// "i", every other language "I" with "i".
enum class Casing { usual, turkic };

/// That of a locale's name, such as "tr_TR.UTF-8".
[[nodiscard]] Casing casingOf(std::string_view locale);

/// That of the user's language, as the environment names it.
[[nodiscard]] Casing userCasing();

/// The bytes of a name made ready for a search without case: every letter in the form that stands for all its cases
/// ("ß" is "ss"), accents composed with their letters. Bytes that are no UTF-8 stand for U+FFFD.
[[nodiscard]] std::string searchable(std::string_view bytes, Casing casing);

/// Whether a text holds another one, both `searchable`. What begins or ends within a letter and its accents does not
/// count: "e" is not in "é", however that is written. The empty text is in every text.
[[nodiscard]] bool holds(std::string_view text, std::string_view part);

} // namespace corvane
