#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace corvane {

/// Where a Linux system keeps what a Mac keeps in that folder of a home (a path relative to it); nothing where it
/// has no other place for it. The place need not exist. What the user has set (XDG variables, user folders) is read
/// anew each time. Any thread.
[[nodiscard]] std::optional<std::string> linuxPlaceFor(std::string_view macPlace, const std::string &home);

} // namespace corvane
