#pragma once

#include <string>
#include <vector>

#include "platform/mounted_folder.h"

namespace corvane {

/// The folders of what this user has put into the Trash of the volumes among those mounts: "files" in
/// ".Trash/USER" and in ".Trash-USER" at their tops. Only volumes on a disk of this computer are touched. Left out is
/// what the standard of the Trash has ignored: a ".Trash" without the sticky bit, links on the way, and what belongs to
/// another user. Any thread.
[[nodiscard]] std::vector<std::string> volumeTrashesOn(const std::vector<MountedFolder> &mounts);

} // namespace corvane
