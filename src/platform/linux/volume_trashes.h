#pragma once

#include <string>
#include <vector>

#include "platform/mounted_folder.h"

namespace corvane {

/// The folders with this user's trashed items on the volumes among those mounts: "files" in ".Trash/USER" and in
/// ".Trash-USER" at their tops. Accesses only volumes on local disks. Skips what the shared Trash format says to
/// ignore: a ".Trash" without the sticky bit, links on the path, and folders of another user. Any thread.
[[nodiscard]] std::vector<std::string> volumeTrashesOn(const std::vector<MountedFolder> &mounts);

} // namespace corvane
