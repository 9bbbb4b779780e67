#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace corvane {

/// The label of the file system that is mounted on "/"; without one the name that the system gives itself
/// ("Debian GNU/Linux"), without that the host's name.
[[nodiscard]] std::optional<std::string> nameOfDisk();

/// The value of a field of an os-release file's text, without its quotes; absent where it is missing or empty.
[[nodiscard]] std::optional<std::string> releaseField(std::string_view text, std::string_view name);

/// A label as udev names its link, where "\x20" stands for a blank.
[[nodiscard]] std::string unescapedLabel(std::string_view name);

} // namespace corvane
