#pragma once

#include <string>
#include <string_view>

namespace corvane {

/// The bytes of a name or path as text that is safe to show: valid UTF-8 on one line, without characters that
/// steer a terminal or turn the direction of what follows, which lets a name pass for another. Control characters
/// become their pictures (U+2400 on), what is no character U+FFFD.
[[nodiscard]] std::string displayUtf8(std::string_view bytes);

/// Whether `displayUtf8` changes nothing.
[[nodiscard]] bool isDisplayText(std::string_view bytes);

/// The path, bytes, with the home folder at its start shortened to "~". A home that is the root of the disk
/// shortens nothing.
[[nodiscard]] std::string withHomeShortened(std::string_view path, std::string_view home);

/// The path as it is shown: shortened in that way, and safe to show.
[[nodiscard]] std::string formatPath(std::string_view path, std::string_view home);

} // namespace corvane
