#pragma once

#include <string>
#include <string_view>

namespace corvane {

// Information about programs in the names of files and folders.

[[nodiscard]] bool isAppImage(std::string_view path);

/// A program's file name; without the extension for an AppImage.
[[nodiscard]] std::string_view programName(std::string_view path);

/// The rest of a name such as "Chart-1.2.3-x86_64" without version and architecture.
[[nodiscard]] std::string_view withoutVersion(std::string_view name);

/// Whether a folder name matches a name, ignoring word separators: "Signal Deck" and "signal-deck-2.1" match, "Games"
/// and "Game" do not. Additional letters are allowed only after a separator.
[[nodiscard]] bool bearsName(std::string_view folder, std::string_view name);

/// The version in a name such as "Chart-1.2.3-x86_64.AppImage": the first part that looks like one; otherwise empty.
[[nodiscard]] std::string versionIn(std::string_view name);

} // namespace corvane
