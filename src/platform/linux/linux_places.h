#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/file_system.h"

namespace corvane {

/// Where a Linux system keeps what a Mac, or a tool by default, keeps in that folder of a home (a
/// path relative to it); nothing where it has no other place for it. The place need not exist. What the user has set
/// (XDG variables, user folders, the tools' own variables and files) is read anew each time. Any thread.
[[nodiscard]] std::optional<OwnPlace> linuxPlaceFor(std::string_view macPlace, const std::string &home);

/// The folders that the user's own list of folders names (user-dirs.dirs). The home folder, which stands for one that
/// is switched off, is left out. Read anew each time; any thread.
[[nodiscard]] std::vector<std::string> linuxUserFolders(const std::string &home);

/// The folders of XDG_DATA_DIRS, or those that hold where it names none. Read anew each time; any thread.
[[nodiscard]] std::vector<std::string> linuxSharedDataFolders();

} // namespace corvane
