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

/// The note about the result of a stopped scan.
inline constexpr std::string_view stoppedScanText = "Scan stopped — showing partial results";

/// The titles of a folder without items to show.
inline constexpr std::string_view unreadableFolderTitle = "Can't read this folder";
inline constexpr std::string_view emptyFolderTitle = "Nothing big here";

/// The titles of empty lists: applications, large files, old files.
inline constexpr std::string_view noAppsTitle = "No apps found";
inline constexpr std::string_view noLargeFilesTitle = "No files match";
inline constexpr std::string_view noOldFilesTitle = "Nothing stale here";

/// A running search for duplicates; its percentage follows where there is room.
inline constexpr std::string_view fingerprintingText = "Fingerprinting files…";

/// The heading of the items to be removed, and the warning before they are deleted permanently.
inline constexpr std::string_view removalTitle = "Selected for removal";
inline constexpr std::string_view deletionWarning =
    "These items will be erased immediately and can't be recovered from the Trash.";

} // namespace corvane
