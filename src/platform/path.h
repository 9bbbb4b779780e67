#pragma once

#include <string>
#include <string_view>

namespace corvane {

// Path functions on text (bytes); none accesses the file system. Any thread.

/// The path of an item directly inside a folder.
[[nodiscard]] std::string joined(std::string_view folder, std::string_view name);

/// The path without ".", "..", repeated and trailing slashes. A relative path stays relative; the empty one stays
/// empty.
[[nodiscard]] std::string withoutDots(std::string_view path);

/// Whether `path` is strictly inside `folder`. Both must have no dots or redundant slashes.
[[nodiscard]] bool liesBeneath(std::string_view path, std::string_view folder);

[[nodiscard]] bool isOrLiesBeneath(std::string_view path, std::string_view folder);

/// The path without its last component, "/" for an item directly in the root; empty if there is no slash.
[[nodiscard]] std::string_view containingFolder(std::string_view path);

/// The last component of a path; the whole text if that would be empty ("/").
[[nodiscard]] std::string_view lastPathComponent(std::string_view path);

/// The text after the last dot of an item's name; empty without a dot. A leading dot does not start an extension.
[[nodiscard]] std::string_view nameExtension(std::string_view name);

} // namespace corvane
