#pragma once

#include <string>
#include <string_view>

namespace corvane {

/// The text with every letter in lower case, mapped one code point to one, independent of language and system. All
/// other characters and bytes that are not UTF-8 are kept. Does not compose letters with accents.
[[nodiscard]] std::string lowerCase(std::string_view text);

} // namespace corvane
