#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace corvane {

class FileSystem;

/// The label of the file system mounted on "/"; otherwise the name in os-release ("Debian GNU/Linux"); otherwise the
/// host name.
[[nodiscard]] std::optional<std::string> nameOfDisk(FileSystem &files);

/// A label from udev's link name, in which "\x20" stands for a space.
[[nodiscard]] std::string unescapedLabel(std::string_view name);

} // namespace corvane
