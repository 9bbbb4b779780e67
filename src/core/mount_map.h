#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/mounted_folder.h"

namespace corvane {

/// The path with its prefix `from` (whole components) replaced by `to`. All absolute.
[[nodiscard]] std::string moved(std::string_view path, std::string_view from, std::string_view to);

/// Looks up mounts by path. Paths are absolute with every link resolved. Immutable.
class MountMap {
public:
    explicit MountMap(std::vector<MountedFolder> mounts);

    [[nodiscard]] bool isEmpty() const { return m_mounts.empty(); }

    /// The mount that contains the path; null if unknown.
    [[nodiscard]] const MountedFolder *holding(std::string_view path) const;

    /// The mounts below a folder, shorter paths first.
    [[nodiscard]] std::vector<const MountedFolder *> beneath(std::string_view folder) const;

    /// The other paths of the same item, if its file system is mounted elsewhere as well.
    [[nodiscard]] std::vector<std::string> otherPathsOf(const std::string &path) const;

private:
    std::vector<MountedFolder> m_mounts; // shorter paths first
};

} // namespace corvane
