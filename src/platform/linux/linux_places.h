#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/file_system.h"

namespace corvane {

/// The location on Linux for what a Mac, or a tool by default, keeps in that folder of a home (a relative path);
/// nothing if there is no other location. The location need not exist. The user's settings (XDG variables, user
/// folders, variables and files of tools) are read each time. Any thread.
[[nodiscard]] std::optional<OwnPlace> linuxPlaceFor(std::string_view macPlace, const std::string &home);

/// The folders in the user's own list (user-dirs.dirs). An entry set to the home folder is disabled and left out. Read
/// each time; any thread.
[[nodiscard]] std::vector<std::string> linuxUserFolders(const std::string &home);

/// The folders of XDG_DATA_DIRS, or the defaults if it contains none. Read each time; any thread.
[[nodiscard]] std::vector<std::string> linuxSharedDataFolders();

} // namespace corvane
