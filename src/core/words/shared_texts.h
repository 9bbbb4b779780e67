#pragma once

#include <string_view>

namespace corvane {

// Texts that the window and the command line both show. Static storage.

/// The heading of the data of deleted applications.
inline constexpr std::string_view orphansTitle = "Left behind by deleted apps";

/// The heading of the commands for the user to copy, and the note about them.
inline constexpr std::string_view adminCommandsTitle = "Needs the Administrator";
inline constexpr std::string_view adminCommandsNote =
    "Corvane never runs these. Copy a command and run it in a terminal.";

} // namespace corvane
