#pragma once

#include <string>
#include <string_view>

namespace corvane {

// Paths as text: bytes, nothing is asked of the system. Any thread.

/// The path of an item directly inside a folder.
[[nodiscard]] std::string joined(std::string_view folder, std::string_view name);

/// The path without ".", "..", repeated and trailing slashes. A relative path stays relative; the empty one stays
/// empty.
[[nodiscard]] std::string withoutDots(std::string_view path);

/// Whether `path` lies beneath `folder` (neither with dots or needless slashes); a folder does not lie beneath itself.
[[nodiscard]] bool liesBeneath(std::string_view path, std::string_view folder);

[[nodiscard]] bool isOrLiesBeneath(std::string_view path, std::string_view folder);

/// The text of a path without its last component, "/" for what lies directly in it; empty where there is no slash.
[[nodiscard]] std::string_view containingFolder(std::string_view path);

/// The last component of a path's text; the whole text where that is empty ("/").
[[nodiscard]] std::string_view lastPathComponent(std::string_view path);

/// What follows the last dot of an item's name; empty without a dot. A dot at the very start begins no extension.
[[nodiscard]] std::string_view nameExtension(std::string_view name);

} // namespace corvane
