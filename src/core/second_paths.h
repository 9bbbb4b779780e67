#pragma once

#include <string>
#include <utility>
#include <vector>

#include "core/mount_map.h"
#include "core/path_guard.h"
#include "platform/file_system.h"

namespace corvane {

/// Detects paths that lead to a protected item a second time, as when a folder is mounted twice. Compares the identity
/// (device, inode) of the protected places with an item and the folders around it. Skips places on volumes other than
/// those of "/" and of the home folder, since one that no longer answers would block, and accesses no item at all if no
/// second mount is involved. Otherwise it reads about a hundred items, cached across the items of a request until the
/// mounts change: suitable just before a removal, not for the rows of a list. Not thread-safe.
class SecondPaths {
public:
    /// Both outlive the object.
    SecondPaths(const ProtectedLocations &locations, FileSystem &files) : m_locations(locations), m_files(files) {}

    /// Whether a real path is a second path to something protected.
    [[nodiscard]] bool leadToProtected(const std::string &realPath, const std::vector<std::string> &mountPoints);

private:
    /// A protected place and a path that leads to the same folder.
    struct Alias {
        const std::string *place;
        std::string path;
    };

    void learnMounts(const std::vector<std::string> &mountPoints);
    void learnFolder(const std::string &folder);
    void addAliases(const std::string &path, std::vector<Alias> &aliases) const;
    [[nodiscard]] bool leadsToProtected(const std::string &realPath, const std::vector<Alias> &aliases) const;

    const ProtectedLocations &m_locations;
    FileSystem &m_files;
    std::vector<std::string> m_mountPoints;
    std::string m_mountOfHome; // empty until the mounts are read
    // On those mounts; read when an item first needs them.
    std::vector<std::pair<ItemIdentity, const std::string *>> m_places;
    MountMap m_mounts{{}};
    bool m_areMountsLearnt = false;
    // For the folder looked up last.
    std::string m_folder;
    std::vector<Alias> m_aliasesAround;
};

} // namespace corvane
