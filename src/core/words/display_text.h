#pragma once

#include <string>
#include <string_view>

namespace corvane {

/// The bytes of a name or path as text that is safe to show: valid UTF-8 on one line, without terminal control
/// characters and without bidi controls, which let one name pass for another. Control characters become control
/// pictures (U+2400 on), invalid bytes U+FFFD.
[[nodiscard]] std::string displayUtf8(std::string_view bytes);

/// Whether `displayUtf8` changes nothing.
[[nodiscard]] bool isDisplayText(std::string_view bytes);

/// The path, bytes, with the home folder at its start shortened to "~". A home folder that is "/" shortens nothing.
[[nodiscard]] std::string withHomeShortened(std::string_view path, std::string_view home);

/// The path for display: shortened in that way, and safe to show.
[[nodiscard]] std::string formatPath(std::string_view path, std::string_view home);

} // namespace corvane
