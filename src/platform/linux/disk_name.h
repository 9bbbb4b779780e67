#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace corvane {

class FileSystem;

/// The label of the file system that is mounted on "/"; without one the name that the system gives itself
/// ("Debian GNU/Linux"), without that the host's name.
[[nodiscard]] std::optional<std::string> nameOfDisk(FileSystem &files);

/// A label as udev names its link, where "\x20" stands for a blank.
[[nodiscard]] std::string unescapedLabel(std::string_view name);

} // namespace corvane
