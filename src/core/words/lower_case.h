#pragma once

#include <string>
#include <string_view>

namespace corvane {

/// The text with every letter in lower case, one character for one, whatever the language and the system; every other
/// character, and a byte that is no UTF-8, stays. A letter and its accent are not put together.
[[nodiscard]] std::string lowerCase(std::string_view text);

} // namespace corvane
