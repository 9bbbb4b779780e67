#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace corvane {

// What the names of files and folders tell of the programs in them.

inline constexpr std::size_t longestVersion = 64;

[[nodiscard]] bool isAppImage(std::string_view path);

/// A program's file name; of an AppImage without its ending.
[[nodiscard]] std::string_view programName(std::string_view path);

/// What is left of a name such as "Chart-1.2.3-x86_64" without the version and the machine behind it.
[[nodiscard]] std::string_view withoutVersion(std::string_view name);

/// Whether a folder bears a name, whatever separates its words: "Signal Deck" and "signal-deck-2.1" are the same, while
/// "Games" is not called after "Game". Letters alone may follow behind a separator.
[[nodiscard]] bool bearsName(std::string_view folder, std::string_view name);

/// The version in a name such as "Chart-1.2.3-x86_64.AppImage": the first of its parts that looks like one; empty
/// without one.
[[nodiscard]] std::string versionIn(std::string_view name);

} // namespace corvane
