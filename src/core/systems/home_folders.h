#pragma once

#include <array>
#include <string_view>

namespace corvane {

/// The standard folders for the user's own files, with the names that a Mac and desktops in English give them. Those
/// that were moved, or are named in another language, are in `FileSystem::userFolders`.
inline constexpr std::array<std::string_view, 9> mainFoldersOfHome{
    "Desktop", "Documents", "Downloads", "Movies", "Music", "Pictures", "Public", "Templates", "Videos"};

} // namespace corvane
